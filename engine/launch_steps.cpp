#include "engine/launch_steps.h"

#include "engine/engine_spawn.h"
#include "launcher/fatal_report.h"
#include "platform/system/system.h"
#include "profile/hygiene.h"

namespace quillon {

Machine thisMachine() {
  return {platform::physicalMemory(), platform::activeProcessorCount()};
}

void cleanProfile(const OverlayKeys& overlay, const std::optional<std::string>& userDataDir) {
  if (!userDataDir || userDataDir->empty()) return;
  if (overlay.closePreviousTabs) clearPreviousTabs(*userDataDir);
  if (!overlay.granularStorageReset.empty()) {
    resetGranularStorage(*userDataDir, overlay.granularStorageReset);
  }
}

void startEngineAndLeave(const platform::Path& engineBinary,
                         const std::vector<std::string>& originalArgs,
                         const SwitchList& overrideSwitches, std::string_view cdpTcpPort) {
  const auto error = spawnEngine(engineBinary, originalArgs, overrideSwitches, cdpTcpPort);
  if (error) reportFatalLaunchFailure(fatalMessage(*error));
  platform::endProcess(0);
}

}  // namespace quillon
