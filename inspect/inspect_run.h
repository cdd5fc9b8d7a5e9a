#pragma once

#include <string>
#include <vector>

#include "platform/core/path.h"

namespace quillon {

/// The launcher that an inspecting program belongs to: for one in a folder "Contents/Helpers" the
/// bundle's own executable, for any other the one beside it. Pure.
[[nodiscard]] platform::Path launcherOf(const platform::Path& inspector);

/// One inspection, from the argument vector (program path first; it may be empty) to the exit
/// status: 0 no error or warning found, 1 at least one, 2 called wrongly or nobody takes the
/// output. Main thread.
[[nodiscard]] int runInspect(const std::vector<std::string>& argumentVector);

}  // namespace quillon
