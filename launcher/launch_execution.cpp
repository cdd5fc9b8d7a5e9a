#include "launcher/launch_execution.h"

#include "engine/engine_spawn.h"
#include "launcher/fatal_report.h"
#include "overlay/webgl_catalogue.h"
#include "platform/host/host.h"
#include "profile/profile_cleaning.h"
#include "reports/launch_result.h"

namespace quillon {

LaunchFacts gatherFacts(const ProcessValues& values) {
  return {{platform::physicalMemory(), platform::activeProcessorCount()},
          webglProfileSwitches(values.request.overlay.webglProfile, values.cataloguePlaces())};
}

void execute(const LaunchPlan& plan) {
  if (!plan.removals.empty()) removeFromProfile(*plan.userDataDir, plan.removals);
  writeResultFile(plan.userDataDir, plan.result);
  if (!plan.engineArguments.empty()) {
    const auto error = spawnEngine(argumentVector(plan.engineArguments));
    if (error) reportFatalLaunchFailure(fatalMessage(*error));
  }
  exitProcess(plan.exitStatus);
}

}  // namespace quillon
