#include "reports/report_file.h"

#include "platform/system/system.h"

namespace quillon {

platform::Path reportFileURL(const std::optional<std::string>& userDataDir,
                             std::string_view fileName) {
  const bool hasProfile = userDataDir && !userDataDir->empty();
  return (hasProfile ? platform::Path(*userDataDir) : platform::perUserFolder()) / fileName;
}

bool writeReportAtomically(const std::function<std::string()>& makeText,
                           const platform::Path& url) {
  const platform::Path temporary = url.native() + ".tmp";
  const bool replaced = platform::createFolders(url.parent_path()) &&
                        platform::writeFileAtomically(temporary, makeText()) &&
                        platform::removeItem(url) && platform::moveItem(temporary, url);
  if (!replaced) platform::removeItem(temporary);
  return replaced;
}

}  // namespace quillon
