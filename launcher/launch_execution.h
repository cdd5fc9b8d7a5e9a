#pragma once

#include "launcher/launch_plan.h"

namespace quillon {

/// Executes a plan: removes data from the profile, writes the result file, starts the engine and
/// ends the process with the plan's exit status. If the engine cannot be started, reports that and
/// ends the process with status 1. Main thread.
[[noreturn]] void execute(const LaunchPlan& plan);

}  // namespace quillon
