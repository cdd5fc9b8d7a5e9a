#pragma once

#include <string>

#include "engine/engine_spawn.h"
#include "platform/ui/alert.h"

namespace quillon {

/// The message about an engine that could not be started. Pure.
[[nodiscard]] std::string fatalMessage(const SpawnError& error);

/// The alert that shows the message. Pure.
[[nodiscard]] platform::ui::Alert fatalAlert(const std::string& message);

/// Writes a line to standard error, shows an alert until the user closes it, and ends the process
/// with status 1. Without a display there is no alert. Main thread.
[[noreturn]] void reportFatalLaunchFailure(const std::string& message);

}  // namespace quillon
