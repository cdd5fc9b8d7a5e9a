#include "reports/report_file.h"

#include "overlay/overlay_location.h"
#include "platform/files/file_replacement.h"

namespace quillon {

platform::Path reportFileURL(const std::optional<std::string>& userDataDir,
                             std::string_view fileName) {
  const bool hasProfile = userDataDir && !userDataDir->empty();
  return (hasProfile ? platform::Path(*userDataDir) : perUserFolder()) / fileName;
}

bool writeReportAtomically(const std::function<std::string()>& makeText,
                           const platform::Path& url) {
  return platform::replaceFile(url, makeText);
}

}  // namespace quillon
