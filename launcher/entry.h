#pragma once

#include <string>
#include <vector>

namespace quillon {

/// One launch, from the argument vector (program path first; it may be empty) to the exit status:
/// 0 the engine runs, or the user closed the window or its display was lost, 1 the engine cannot be
/// started, 42 the proxy-failure policy forbids it. Ends the process itself on almost every way.
/// Main thread, once.
int runLauncher(const std::vector<std::string>& argumentVector);

}  // namespace quillon
