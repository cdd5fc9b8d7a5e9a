#include "launcher/launch_execution.h"

#include "engine/engine_spawn.h"
#include "launcher/fatal_report.h"
#include "profile/profile_cleaning.h"
#include "reports/launch_result.h"

namespace quillon {

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
