#pragma once

#include <string>
#include <vector>

namespace quillon {

/// Runs one launch. `argumentVector` starts with the program path; it can be empty. Exit status: 0
/// if the engine was started, the user closed the window or its display was lost; 1 if the engine
/// cannot be started; 42 if the discovery failed and the overlay blocks the engine then. Ends the
/// process itself, unless the event loop returns. Main thread, once.
int runLauncher(const std::vector<std::string>& argumentVector);

}  // namespace quillon
