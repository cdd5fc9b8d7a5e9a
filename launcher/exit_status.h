#pragma once

#include "platform/process/process.h"

namespace quillon {

/// How the launcher ends.
enum class ExitStatus {
  /// The engine was started, or the user closed the window or its display was lost.
  success = 0,
  /// The engine cannot be started.
  fatalFailure = 1,
  /// The discovery failed, and the overlay wants no engine then.
  blocked = 42,
};

/// Ends the process at once, whatever other threads do.
[[noreturn]] inline void exitProcess(ExitStatus status) {
  platform::endProcess(static_cast<int>(status));
}

}  // namespace quillon
