#pragma once

#include <vector>

#include "platform/core/path.h"

namespace quillon::platform {

/// Where file systems, folders or files are mounted, as paths without links; empty when the system
/// does not say. Any thread.
[[nodiscard]] std::vector<Path> mountPoints();

}  // namespace quillon::platform
