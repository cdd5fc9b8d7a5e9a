#include "inspect/text_page.h"

#include <algorithm>
#include <array>

#include "discovery/endpoints.h"
#include "inspect/curl_statuses.h"
#include "inspect/findings.h"
#include "platform/probe/tree_size.h"

namespace quillon {
namespace {

using Rows = std::vector<TextRow>;

constexpr const char* red = "31";
constexpr const char* green = "32";
constexpr const char* yellow = "33";
constexpr const char* blue = "34";
constexpr const char* magenta = "35";
constexpr const char* cyan = "36";

/// Without the password: what is shown is copied into mails and reports.
std::string masked(std::string text) {
  const std::size_t scheme = text.find("://");
  if (scheme == std::string::npos) return text;
  const std::size_t user = scheme + 3;
  const std::size_t at = text.find('@', user);
  const std::size_t colon = text.find(':', user);
  if (at == std::string::npos || colon == std::string::npos || colon > at) return text;
  return text.replace(colon + 1, text.rfind('@') - colon - 1, "…");
}

std::string quotedForShell(const std::string& text) {
  constexpr std::string_view plain =
      "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-_./:=@,%+…";
  if (!text.empty() && text.find_first_not_of(plain) == std::string::npos) return text;
  std::string quoted("'");
  for (const char character : text) {
    quoted += character == '\'' ? std::string("'\\''") : std::string(1, character);
  }
  return quoted + "'";
}

void addPlaces(Rows& rows, const LaunchPreview& preview) {
  constexpr std::array<const char*, 4> states{"", " (missing)", " (unreadable)", " (malformed)"};
  const auto& userDataDir = preview.values.request.userDataDir;
  rows.push_back({"Profile", "", userDataDir.value_or("(none named)"), ""});
  rows.push_back({"Overlay", "",
                  preview.values.overlayURL.text() +
                      states.at(static_cast<std::size_t>(preview.host.overlay.state)),
                  ""});
}

void addMode(Rows& rows, const LaunchPreview& preview) {
  const OverlayKeys& overlay = preview.values.request.overlay;
  std::string keys;
  std::string_view last;
  for (const Derivation& derivation : derivations) {
    if (!isDerived(derivation, overlay) || derivation.askedBy.name == last) continue;
    last = derivation.askedBy.name;
    keys.append(keys.empty() ? "" : ", ").append(last);
  }
  rows.push_back({"Mode", "",
                  needsDiscovery(overlay) ? "windowed, because of " + keys
                                          : "passthrough: nothing has to be discovered",
                  ""});
}

void addDerivations(Rows& rows, const LaunchPreview& preview) {
  const bool hasFailed = preview.outcome && preview.outcome->failed();
  for (const Derivation& derivation : derivations) {
    if (!isDerived(derivation, preview.values.request.overlay)) continue;
    std::string value(hasFailed ? "nothing" : unknownValue);
    if (preview.outcome && !hasFailed) value = preview.outcome->persona.*derivation.value;
    rows.push_back({"Derives", "",
                    std::string(derivation.key.name) + " = " + value + "  (" +
                        std::string(derivation.askedBy.name) + ")",
                    ""});
  }
  const OverlayKeys& overlay = preview.values.request.overlay;
  if (!needsDiscovery(overlay)) return;
  rows.push_back({"Derives", "",
                  "from " + primaryEndpoint().url +
                      (wantsMoreThanAddress(overlay) ? "" : ", or else " + fallbackEndpoint().url),
                  ""});
}

void addCurl(Rows& rows, const LaunchPreview& preview) {
  const auto arguments = preview.curl();
  if (!arguments) return;
  std::string line;
  for (const std::string& argument : *arguments) {
    line.append(line.empty() ? "" : " ").append(quotedForShell(masked(argument)));
  }
  rows.push_back({"curl", "", line, ""});
}

void addDiscovery(Rows& rows, const LaunchPreview& preview) {
  if (!preview.wasDiscovered) return;
  const DiscoverResult& result = preview.outcome->result;
  const std::string time = std::to_string(result.elapsedMs) + " ms";
  if (preview.outcome->failed()) {
    const bool hasStatus = result.curlExitCode > 0;
    rows.push_back({"Discovery", "failed",
                    result.errorCode + " after " + time +
                        (hasStatus ? ": curl ended with " + std::to_string(result.curlExitCode) +
                                         ", " + curlStatusText(result.curlExitCode)
                                   : ""),
                    red});
    return;
  }
  std::string text = result.ip;
  for (const std::string* part :
       {&result.countryCode, &result.timezone, &result.latitude, &result.longitude}) {
    if (!part->empty()) text += ", " + *part;
  }
  rows.push_back({"Discovery", "done",
                  text + "; told by " + preview.outcome->endpoint.host + " after " + time, green});
}

void addRemovals(Rows& rows, const LaunchPreview& preview) {
  for (const platform::Path& path : preview.removes) {
    const platform::TreeSize size = platform::treeSizeOf(path);
    rows.push_back({"Removes", "",
                    path.text() + "  (" + (size.isWhole ? "" : "at least ") +
                        counted(size.files, "file") + ", " + counted(size.bytes, "byte") + ")",
                    ""});
  }
  if (preview.removes.empty()) rows.push_back({"Removes", "", "nothing", ""});
}

void addEngine(Rows& rows, const LaunchPreview& preview) {
  struct Look {
    const char* name;
    const char* color;
  };
  constexpr std::array<Look, 6> looks{{{"engine", ""},
                                       {"caller", cyan},
                                       {"catalogue", magenta},
                                       {"persona", green},
                                       {"machine", blue},
                                       {"launcher", ""}}};
  const std::vector<std::string> texts = argumentVector(preview.plan.engineArguments);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const auto origin = static_cast<std::size_t>(preview.plan.engineArguments[i].origin);
    rows.push_back({"Engine", looks.at(origin).name, texts[i], looks.at(origin).color});
  }
}

void addEnd(Rows& rows, const LaunchPreview& preview) {
  const auto status = preview.exitStatus();
  if (!status) {
    rows.push_back({"Ends", "",
                    preview.values.request.overlay.onProxyFail == "block"
                        ? "known after the discovery only: one that fails ends it with status 42"
                        : "known after the discovery only: the engine starts even if it fails",
                    ""});
    return;
  }
  rows.push_back(
      {"Ends", "",
       "with status " + std::to_string(static_cast<int>(*status)) +
           (*status == ExitStatus::success ? ", the engine running" : ", without an engine"),
       ""});
}

void addFindings(Rows& rows, const Findings& findings) {
  constexpr std::array<const char*, 3> colors{red, yellow, cyan};
  for (const Finding& finding : findings) {
    rows.push_back({"Findings", std::string(nameOf(finding.level)), finding.message,
                    colors.at(static_cast<std::size_t>(finding.level))});
  }
  if (findings.empty()) rows.push_back({"Findings", "", "none", ""});
}

}  // namespace

std::string textPage(const LaunchPreview& preview, const Findings& findings,
                     const TextStyle& style) {
  Rows rows;
  addPlaces(rows, preview);
  addMode(rows, preview);
  addDerivations(rows, preview);
  addCurl(rows, preview);
  addDiscovery(rows, preview);
  addRemovals(rows, preview);
  addEngine(rows, preview);
  addEnd(rows, preview);
  addFindings(rows, findings);
  return renderRows(rows, style);
}

}  // namespace quillon
