#include "reports/launch_result.h"

#include "reports/report_file.h"
#include "reports/report_text.h"

namespace quillon {

std::string launchResultText(const LaunchResultRecord& record, std::string_view timestamp) {
  return writeJsonObject({
      {"schema", 1},
      {"ts", std::string(timestamp)},
      {"status", record.status},
      {"ip", record.ip},
      {"timezone", record.timezone},
      {"country_code", record.countryCode},
      {"lat", record.lat},
      {"lng", record.lng},
      {"lang", record.lang},
      {"accept_lang", record.acceptLang},
      {"elapsed_ms", record.elapsedMs},
      {"provider", record.provider},
      {"error_code", record.errorCode},
      {"message", record.message},
      {"launcher_version", record.launcherVersion},
  });
}

void writeResultFile(const std::optional<std::string>& userDataDir,
                     const LaunchResultRecord& record) {
  writeReportAtomically([&] { return launchResultText(record, reportTimestamp()); },
                        reportFileURL(userDataDir, ".quillon-launcher-result.json"));
}

}  // namespace quillon
