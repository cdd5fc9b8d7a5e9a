#include "launcher/launch_plan.h"

#include <utility>

#include "engine/engine_spawn.h"

namespace quillon {
namespace {

/// What the overlay wants removed; nothing without a profile folder.
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

/// A launch that starts the engine; `persona` are the switches for what was derived.
LaunchPlan planStart(const LaunchRequest& request, const LaunchFacts& facts,
                     const SwitchList& persona, LaunchResultRecord result) {
  LaunchPlan plan;
  plan.userDataDir = request.userDataDir;
  plan.removals = removalsOf(request);
  plan.overrideSwitches = facts.webglSwitches;
  appendAll(plan.overrideSwitches, persona);
  appendAll(plan.overrideSwitches, machineSwitches(request.overlay, facts.machine));
  plan.engineArguments = engineArgumentVector(request.engineBinary, request.originalArgs,
                                              plan.overrideSwitches, request.overlay.cdpTcpPort);
  plan.result = std::move(result);
  return plan;
}

}  // namespace

LaunchPlan planPassthrough(const LaunchRequest& request, const LaunchFacts& facts) {
  return planStart(request, facts, {}, resultRecord("passthrough", {}, {}));
}

LaunchPlan planWindowed(const LaunchRequest& request, const LaunchFacts& facts,
                        const DiscoveryOutcome& outcome) {
  return planStart(request, facts, personaSwitches(request.overlay, outcome.persona),
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
