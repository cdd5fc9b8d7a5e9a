#include <utility>

#include "engine/launch_steps.h"
#include "launcher/launcher_delegate.h"
#include "launcher/process_values.h"
#include "platform/system/system.h"
#include "reports/launch_result.h"

namespace quillon {
namespace {

constexpr int blockedStatus = 42;

LaunchResultRecord resultRecord(const LauncherDelegate& delegate, std::string status) {
  const DiscoveryCapture& discovery = delegate.discovery;
  const ResolvedPersona& persona = delegate.persona;
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

[[noreturn]] void leaveBlocked(const LauncherDelegate& delegate) {
  LaunchResultRecord record = resultRecord(delegate, "blocked");
  record.errorCode = "PROXY_BLOCKED";
  record.message = "see .quillon-launcher-error.json for details";
  writeResultFile(delegate.userDataDir, record);
  platform::endProcess(blockedStatus);
}

}  // namespace

void LauncherDelegate::finishLaunch() {
  splash->window.orderOut();
  if (blockEngine) leaveBlocked(*this);
  SwitchList overrideSwitches =
      webglProfileSwitches(overlay.webglProfile, processValues().cataloguePlaces());
  appendAll(overrideSwitches, personaSwitches(overlay, persona));
  cleanProfile(overlay, userDataDir);
  appendAll(overrideSwitches, machineSwitches(overlay, thisMachine()));
  writeResultFile(userDataDir, resultRecord(*this, "ok"));
  startEngineAndLeave(engineBinary, originalArgs, overrideSwitches, overlay.cdpTcpPort);
}

}  // namespace quillon
