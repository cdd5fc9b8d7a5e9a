#pragma once

#include "launcher/launch_plan.h"
#include "launcher/process_values.h"

namespace quillon {

/// Reads what a plan takes from outside: the catalogue, only when a profile of it is named, and
/// what this machine tells about itself. Any thread.
[[nodiscard]] LaunchFacts gatherFacts(const ProcessValues& values);

/// Does what is planned: cleans the profile, writes the result file, starts the engine, and ends
/// the process with the plan's status, or by the fatal report when the engine cannot be started.
/// Main thread.
[[noreturn]] void execute(const LaunchPlan& plan);

}  // namespace quillon
