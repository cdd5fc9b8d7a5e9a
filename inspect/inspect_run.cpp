#include "inspect/inspect_run.h"

#include <algorithm>

#include "inspect/findings.h"
#include "inspect/inspect_options.h"
#include "inspect/json_page.h"
#include "inspect/text_page.h"
#include "launcher_version.h"
#include "platform/files/bundle.h"
#include "platform/probe/standard_output.h"
#include "platform/process/environment.h"
#include "platform/process/process.h"

namespace quillon {
namespace {

enum Status { noFindings = 0, findingsReported = 1, usageError = 2 };

TextStyle styleFor(const InspectOptions& options) {
  const bool isTerminal = platform::standardOutputIsTerminal();
  const auto noColor = platform::startEnvironment().value("NO_COLOR");
  const bool isForbidden = noColor && !noColor->empty();
  return {isTerminal, isTerminal && options.mayColor && !isForbidden};
}

int statusFor(const Findings& findings) {
  const bool isReported = std::any_of(findings.begin(), findings.end(), [](const Finding& finding) {
    return finding.level != Finding::Level::note;
  });
  return isReported ? findingsReported : noFindings;
}

int print(const std::string& text, int status) {
  return platform::writeToStandardOutput(text) ? status : usageError;
}

int inspect(const InspectOptions& options) {
  const LaunchPreview preview = previewLaunch(launcherOf(platform::executableLocation()),
                                              options.launchArguments, options.discovers);
  const Findings findings = findingsOf(preview);
  return print(options.printsJson ? jsonPage(preview, findings)
                                  : textPage(preview, findings, styleFor(options)),
               statusFor(findings));
}

}  // namespace

platform::Path launcherOf(const platform::Path& inspector) {
  constexpr const char* name = "Nimbra";
  const platform::Path folder = inspector.folder();
  const platform::Path contents = folder.folder();
  const bool isInBundle = folder.name() == "Helpers" && contents.name() == "Contents";
  return isInBundle ? contents / "MacOS" / name : folder / name;
}

int runInspect(const std::vector<std::string>& argumentVector) {
  const InspectOptions options = readOptions(argumentVector);
  if (!options.error.empty()) {
    platform::writeToStandardError("nimbra-inspect: " + options.error +
                                   "\nTry nimbra-inspect --help.\n");
    return usageError;
  }
  if (options.wantsHelp) return print(helpPage(), noFindings);
  if (options.wantsVersion) {
    return print(std::string("nimbra-inspect ") + launcherVersion + "\n", noFindings);
  }
  return inspect(options);
}

}  // namespace quillon
