#include "launcher/launch_plan.h"

#include <utility>

#include "launcher_version.h"

namespace quillon {
namespace {

/// What the overlay asks to remove. Empty without a profile folder.
ProfileItems removalsOf(const LaunchRequest& request) {
  ProfileItems removals;
  if (!request.userDataDir || request.userDataDir->empty()) return removals;
  if (request.overlay.closePreviousTabs) clearPreviousTabs(removals);
  resetGranularStorage(removals, request.overlay.granularStorageReset);
  return removals;
}

LaunchResultRecord resultRecord(std::string status, const DiscoveryCapture& discovery,
                                const ResolvedPersona& persona) {
  LaunchResultRecord record;
  record.status = std::move(status);
  record.ip = discovery.ip;
  record.countryCode = discovery.countryCode;
  record.provider = discovery.provider;
  record.timezone = discovery.timezone;
  record.elapsedMs = discovery.elapsedMs;
  record.lat = persona.resolvedGeoLat;
  record.lng = persona.resolvedGeoLng;
  record.lang = persona.resolvedLang;
  record.acceptLang = persona.resolvedAcceptLang;
  record.launcherVersion = launcherVersion;
  return record;
}

/// A launch that starts the engine. `derived` is null if there was no discovery.
LaunchPlan planStart(const LaunchRequest& request, const LaunchFacts& facts,
                     const ResolvedPersona* derived, LaunchResultRecord result) {
  LaunchPlan plan;
  plan.userDataDir = request.userDataDir;
  plan.removals = removalsOf(request);
  plan.engineArguments =
      engineArguments(request.engineBinary, request.originalArgs, request.overlay, facts, derived);
  plan.result = std::move(result);
  return plan;
}

}  // namespace

LaunchPlan planPassthrough(const LaunchRequest& request, const LaunchFacts& facts) {
  return planStart(request, facts, nullptr, resultRecord("passthrough", {}, {}));
}

LaunchPlan planWindowed(const LaunchRequest& request, const LaunchFacts& facts,
                        const DiscoveryOutcome& outcome) {
  return planStart(request, facts, &outcome.persona,
                   resultRecord("ok", outcome.discovery, outcome.persona));
}

LaunchPlan planBlocked(const LaunchRequest& request, const DiscoveryOutcome& outcome) {
  LaunchPlan plan;
  plan.userDataDir = request.userDataDir;
  plan.result = resultRecord("blocked", outcome.discovery, outcome.persona);
  plan.result.errorCode = "PROXY_BLOCKED";
  plan.result.message = "see .quillon-launcher-error.json for details";
  plan.exitStatus = ExitStatus::blocked;
  return plan;
}

bool blocksEngine(const OverlayKeys& overlay, const DiscoveryOutcome& outcome) {
  return outcome.failed() && overlay.onProxyFail == "block";
}

}  // namespace quillon
