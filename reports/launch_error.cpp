#include "reports/launch_error.h"

#include "platform/files/files.h"
#include "reports/report_file.h"
#include "reports/report_text.h"

namespace quillon {
namespace {

platform::Path errorFileURL(const std::optional<std::string>& userDataDir) {
  return reportFileURL(userDataDir, ".quillon-launcher-error.json");
}

}  // namespace

std::string launchErrorText(const LaunchErrorRecord& record, std::string_view timestamp) {
  std::vector<ReportMember> members{
      {"schema", 1},
      {"ts", std::string(timestamp)},
      {"step", record.step},
      {"error_code", record.errorCode},
      {"message", record.message},
  };
  if (record.proxy) members.emplace_back("proxy", *record.proxy);
  if (record.discoveryUrl) members.emplace_back("discovery_url", *record.discoveryUrl);
  if (record.curlExitCode) members.emplace_back("curl_exit_code", *record.curlExitCode);
  members.emplace_back("elapsed_ms", record.elapsedMs);
  members.emplace_back("launcher_version", record.launcherVersion);
  return writeJsonObject(members);
}

void writeErrorFile(const std::optional<std::string>& userDataDir,
                    const LaunchErrorRecord& record) {
  writeReportAtomically([&] { return launchErrorText(record, reportTimestamp()); },
                        errorFileURL(userDataDir));
}

void removeErrorFile(const std::optional<std::string>& userDataDir) {
  platform::removeItem(errorFileURL(userDataDir));
}

}  // namespace quillon
