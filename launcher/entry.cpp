#include "launcher/entry.h"

#include <utility>

#include "discovery/persona.h"
#include "launcher/exit_status.h"
#include "launcher/launch_execution.h"
#include "launcher/launcher_delegate.h"
#include "launcher/process_values.h"
#include "platform/files/bundle.h"
#include "platform/ui/application.h"

namespace quillon {
namespace {

/// The delegate launches from within the event loop.
int runWindowed(ProcessValues values) {
  platform::ui::Application& application = platform::ui::Application::shared();
  // Never destroyed: the background thread uses it until the process ends.
  static auto& delegate = *new LauncherDelegate(std::move(values));
  application.setDelegate(delegate);
  application.setActivationPolicy(platform::ui::ActivationPolicy::accessory);
  application.run();
  return static_cast<int>(ExitStatus::success);
}

}  // namespace

int runLauncher(const std::vector<std::string>& argumentVector) {
  ProcessValues values = readProcessValues(argumentVector, platform::executableLocation());
  if (needsDiscovery(values.request.overlay)) return runWindowed(std::move(values));
  const LaunchFacts facts = gatherFacts(values);
  const LaunchPlan plan = planPassthrough(values.request, facts);
  execute(plan);
}

}  // namespace quillon
