#pragma once

#include <vector>

#include "platform/core/path.h"

namespace quillon::platform {

/// The folders and files that are mount points, as paths without symbolic links. Empty if the
/// system does not report them. Any thread.
[[nodiscard]] std::vector<Path> mountPoints();

}  // namespace quillon::platform
