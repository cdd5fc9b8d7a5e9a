#include "launcher/entry.h"

#include <memory>

#include "engine/launch_steps.h"
#include "launcher/launcher_delegate.h"
#include "launcher/process_values.h"
#include "platform/ui/application.h"
#include "reports/launch_result.h"

namespace quillon {
namespace {

/// Nothing has to be learned from the proxy: the engine starts at once.
[[noreturn]] void runPassthrough(const ProcessValues& values) {
  cleanProfile(values.overlay, values.userDataDir);
  SwitchList overrideSwitches =
      webglProfileSwitches(values.overlay.webglProfile, values.cataloguePlaces());
  appendAll(overrideSwitches, machineSwitches(values.overlay, thisMachine()));
  LaunchResultRecord record;
  record.status = "passthrough";
  record.launcherVersion = launcherVersion;
  writeResultFile(values.userDataDir, record);
  startEngineAndLeave(values.engineBinary, values.originalArgs, overrideSwitches,
                      values.overlay.cdpTcpPort);
}

/// The delegate does the launching from within the event loop.
int runWindowed(const ProcessValues& values) {
  platform::ui::Application& application = platform::ui::Application::shared();
  // Never destroyed: the background thread uses it until the process ends.
  static const auto& delegate = *new std::shared_ptr(std::make_shared<LauncherDelegate>(
      values.overlay, values.engineBinary, values.originalArgs, values.userDataDir));
  application.setDelegate(*delegate);
  application.setActivationPolicy(platform::ui::ActivationPolicy::accessory);
  application.run();
  return 0;
}

}  // namespace

int runLauncher(const std::vector<std::string>& argumentVector) {
  const ProcessValues& values = fixProcessValues(argumentVector);
  if (values.needsWindow) return runWindowed(values);
  runPassthrough(values);
}

}  // namespace quillon
