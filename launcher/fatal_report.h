#pragma once

#include <string>

#include "engine/engine_spawn.h"
#include "platform/ui/alert.h"

namespace quillon {

/// What the user is told about an engine that could not be started. Pure.
[[nodiscard]] std::string fatalMessage(const SpawnError& error);

/// The alert that says so. Pure.
[[nodiscard]] platform::ui::Alert fatalAlert(const std::string& message);

/// Gives up: a line on standard error, an alert that waits for the user (none without a display),
/// and the end of the process with status 1. Main thread.
[[noreturn]] void reportFatalLaunchFailure(const std::string& message);

}  // namespace quillon
