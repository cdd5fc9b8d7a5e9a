#include "inspect/launch_preview.h"

#include <algorithm>

#include "discovery/endpoints.h"
#include "platform/probe/mount_points.h"
#include "profile/profile_cleaning.h"

namespace quillon {
namespace {

using EngineStart = LaunchPreview::EngineStart;

/// A discovery that gives everything that is asked for.
DiscoveryOutcome unknownOutcome(const OverlayKeys& overlay) {
  DiscoveryOutcome outcome;
  for (const Derivation& derivation : derivations) {
    if (isDerived(derivation, overlay))
      outcome.persona.*derivation.value = std::string(unknownValue);
  }
  return outcome;
}

/// Discovers when that is wanted, or when it comes to nothing before curl is started.
std::optional<DiscoveryOutcome> outcomeOf(const LaunchPreview& preview, bool discover) {
  const OverlayKeys& overlay = preview.values.request.overlay;
  const bool startsCurl = preview.curl() && preview.host.curlIsExecutable;
  if (!needsDiscovery(overlay) || (startsCurl && !discover)) return std::nullopt;
  return discoverAndResolve(
      overlay, [](const std::string&) {}, discoverEgress);
}

LaunchPlan planOf(const LaunchPreview& preview) {
  const LaunchRequest& request = preview.values.request;
  if (!needsDiscovery(request.overlay)) return planPassthrough(request, preview.facts);
  const DiscoveryOutcome outcome = preview.outcome.value_or(unknownOutcome(request.overlay));
  return blocksEngine(request.overlay, outcome) ? planBlocked(request, outcome)
                                                : planWindowed(request, preview.facts, outcome);
}

/// What stands in the profile and is not a mount point itself.
std::vector<platform::Path> removedBy(const LaunchPlan& plan,
                                      const std::vector<platform::Path>& mounts) {
  auto found = findInProfile(plan.userDataDir.value_or(""), plan.removals);
  std::transform(found.begin(), found.end(), found.begin(), platform::absolutePath);
  std::erase_if(found, [&](const platform::Path& path) {
    const platform::Path place = platform::resolvedPath(path.folder()) / path.name();
    return std::find(mounts.begin(), mounts.end(), place) != mounts.end();
  });
  return found;
}

}  // namespace

EngineStart LaunchPreview::engineStart() const {
  const std::vector<std::string> arguments = argumentVector(plan.engineArguments);
  if (arguments.empty()) return EngineStart::notWanted;
  if (!host.engineIsExecutable) return EngineStart::missing;
  const platform::ArgumentLimits& limits = host.argumentLimits;
  const bool fits = platform::startBytes(arguments) + host.environmentBytes <= limits.together &&
                    std::all_of(arguments.begin(), arguments.end(), [&](const std::string& text) {
                      return text.size() < limits.oneString;
                    });
  return fits ? EngineStart::succeeds : EngineStart::tooLong;
}

std::optional<std::vector<std::string>> LaunchPreview::engine() const {
  if (engineStart() != EngineStart::succeeds) return std::nullopt;
  return argumentVector(plan.engineArguments);
}

std::optional<ExitStatus> LaunchPreview::exitStatus() const {
  if (!isComplete()) return std::nullopt;
  const EngineStart start = engineStart();
  const bool fails = start == EngineStart::missing || start == EngineStart::tooLong;
  return fails ? ExitStatus::fatalFailure : plan.exitStatus;
}

std::optional<std::vector<std::string>> LaunchPreview::curl() const {
  if (!needsDiscovery(values.request.overlay)) return std::nullopt;
  auto arguments = curlArguments({values.request.overlay.proxyServer, primaryEndpoint().url});
  if (arguments) arguments->insert(arguments->begin(), curlExecutable);
  return arguments;
}

LaunchPreview previewLaunch(const platform::Path& launcher,
                            const std::vector<std::string>& arguments, bool discover) {
  std::vector<std::string> argumentVector{launcher.text()};
  argumentVector.insert(argumentVector.end(), arguments.begin(), arguments.end());
  LaunchPreview preview;
  preview.values = readProcessValues(argumentVector, launcher);
  preview.host = probeHost(preview.values);
  preview.outcome = outcomeOf(preview, discover);
  preview.wasDiscovered = discover && preview.outcome;
  preview.facts = gatherFacts(preview.values);
  preview.plan = planOf(preview);
  const std::string userDataDir = preview.plan.userDataDir.value_or("");
  preview.skippedSymlinks = findSkippedSymlinks(userDataDir, preview.plan.removals);
  preview.skippedMounts =
      findSkippedMounts(platform::mountPoints(), userDataDir, preview.plan.removals);
  preview.removes = removedBy(preview.plan, preview.skippedMounts);
  return preview;
}

}  // namespace quillon
