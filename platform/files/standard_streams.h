#pragma once

#include <array>

namespace quillon::platform {

/// Of the descriptors 0, 1 and 2, in this order: whether the process started without it.
[[nodiscard]] std::array<bool, 3> closedStandardStreams();

}  // namespace quillon::platform
