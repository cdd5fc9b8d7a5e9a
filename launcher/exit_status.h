#pragma once

#include "platform/process/process.h"

namespace quillon {

/// The launcher's exit statuses.
enum class ExitStatus {
  /// The engine was started, or the user closed the window or its display was lost.
  success = 0,
  /// The engine cannot be started.
  fatalFailure = 1,
  /// The discovery failed, and the overlay blocks the engine in this case.
  blocked = 42,
};

/// Ends the process immediately, even if other threads are running.
[[noreturn]] inline void exitProcess(ExitStatus status) {
  platform::endProcess(static_cast<int>(status));
}

}  // namespace quillon
