#include <algorithm>
#include <array>
#include <string>

#include "discovery/egress_discovery.h"
#include "discovery/endpoints.h"
#include "inspect/findings.h"

namespace quillon {
namespace {

using EngineStart = LaunchPreview::EngineStart;
using Level = Finding::Level;
using ProfileFolder = HostState::ProfileFolder;

Findings missingEngine(const LaunchPreview& preview) {
  if (preview.host.engineIsExecutable) return {};
  const std::string engine = preview.values.request.engineBinary.text();
  return {{Level::error, "",
           "The engine " + engine +
               " is missing or not executable: the launch ends with status 1. Install it, or name "
               "another in QUILLON_ENGINE_BIN."}};
}

/// Where an argument that is too long comes from, as far as the overlay is to blame.
std::string_view keyOf(const std::string& argument, const LaunchPreview& preview) {
  const SwitchList& webgl = preview.facts.webglSwitches;
  if (argument == preview.values.request.overlay.startPage) return overlayKey("start-page").name;
  const bool isOfWebgl = std::find(webgl.begin(), webgl.end(), argument) != webgl.end();
  return isOfWebgl ? overlayKey("webgl-profile").name : "";
}

Findings tooLongForTheEngine(const LaunchPreview& preview) {
  if (preview.engineStart() != EngineStart::tooLong) return {};
  const auto& limits = preview.host.argumentLimits;
  constexpr const char* end = ": the engine cannot be started, the launch ends with status 1.";
  for (const std::string& argument : argumentVector(preview.plan.engineArguments)) {
    if (argument.size() < limits.oneString) continue;
    const std::string key(keyOf(argument, preview));
    constexpr std::size_t headBytes = 40;
    return {{Level::error, key,
             (key.empty() ? "The argument " + argument.substr(0, headBytes) + "…"
                          : inOverlay(preview, key)) +
                 " is longer than the " + std::to_string(limits.oneString - 1) +
                 " bytes that the system takes for an argument" + end + " Shorten it."}};
  }
  return {{Level::error, "",
           "Arguments and environment together are longer than the " +
               std::to_string(limits.together) + " bytes that the system takes" + end +
               " Pass fewer."}};
}

Findings tooLongForCurl(const LaunchPreview& preview) {
  const auto curl = preview.curl();
  const std::size_t limit = preview.host.argumentLimits.oneString;
  const bool fits = !curl || std::all_of(curl->begin(), curl->end(), [&](const std::string& text) {
    return text.size() < limit;
  });
  if (fits) return {};
  return {findingAbout(overlayKey("proxy-server"), Level::error, preview,
                       " is longer than the " + std::to_string(limit - 1) +
                           " bytes that the system takes for an argument: curl cannot be started, "
                           "and discovery fails. Shorten it.")};
}

Findings missingCurl(const LaunchPreview& preview) {
  if (!needsDiscovery(preview.values.request.overlay) || preview.host.curlIsExecutable) return {};
  return {{Level::error, "",
           std::string(curlExecutable) +
               " is missing or not executable: discovery fails. Install curl."}};
}

Findings curlConfiguration(const LaunchPreview& preview) {
  const auto& file = preview.host.curlConfiguration;
  if (!preview.curl() || !file) return {};
  return {{Level::note, "",
           "curl reads " + file->text() +
               " at every discovery: what stands there may lead it another way than through the "
               "proxy. Take it out if discovery gives what it should not."}};
}

Findings reservedHosts(const LaunchPreview& preview) {
  const bool hasAnswered = preview.outcome && !preview.outcome->failed();
  if (!preview.curl() || hasAnswered || !isReservedHost(primaryEndpoint().host)) return {};
  return {{Level::warning, "",
           "The endpoint " + primaryEndpoint().host +
               " is a reserved name, which nobody has: discovery fails unless the proxy knows "
               "better. Build with QUILLON_PRIMARY_HOST and QUILLON_FALLBACK_HOST set."}};
}

Findings unusableFolder(const LaunchPreview& preview) {
  const std::string folder = preview.values.request.userDataDir.value_or("");
  switch (preview.host.profileFolder) {
    case ProfileFolder::notNamed:
    case ProfileFolder::writable:
      return {};
    case ProfileFolder::missing:
      return {{Level::warning, "",
               "The profile folder " + folder +
                   " does not exist: the launch makes a new one, without a persona of its own. "
                   "Check the path."}};
    case ProfileFolder::notAFolder:
      return {{Level::error, "",
               "The profile folder " + folder +
                   " is a file: no report is written, and the engine finds no place for its data. "
                   "Name a folder."}};
    case ProfileFolder::notWritable:
      break;
  }
  return {{Level::error, "",
           "The profile folder " + folder +
               " may not be written: no report is written, nothing in it removed, and the engine "
               "cannot keep its data. Change its owner or mode."}};
}

Findings runningBrowser(const LaunchPreview& preview) {
  if (!preview.host.profileIsInUse || preview.removes.empty()) return {};
  return {{Level::warning, "",
           "A running browser holds the profile (" +
               preview.values.request.userDataDir.value_or("") +
               "/SingletonLock), and the launch removes files under its hands. Close it first."}};
}

Findings skippedSymlinks(const LaunchPreview& preview) {
  Findings findings;
  for (const platform::Path& link : preview.skippedSymlinks) {
    findings.push_back({Level::warning, "",
                        link.text() +
                            " is a link: what the launch is to remove behind it stays, and may "
                            "tell sites who the user was. Put the folder itself there."});
  }
  return findings;
}

Findings skippedMounts(const LaunchPreview& preview) {
  Findings findings;
  for (const platform::Path& mount : preview.skippedMounts) {
    findings.push_back({Level::warning, "",
                        mount.text() +
                            ": is a mount point: the launch removes nothing in it, and what stays "
                            "may tell sites who the user was. Unmount it, or empty it yourself."});
  }
  return findings;
}

}  // namespace

Findings hostFindings(const LaunchPreview& preview) {
  constexpr std::array<Check, 10> checks{
      missingEngine, tooLongForTheEngine, tooLongForCurl, missingCurl,     curlConfiguration,
      reservedHosts, unusableFolder,      runningBrowser, skippedSymlinks, skippedMounts};
  return findWith(checks, preview);
}

}  // namespace quillon
