#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace quillon::platform {

/// What the system takes when a program is started: the bytes of one string, its NUL included, and
/// of all arguments and environment entries together with their pointers.
struct ArgumentLimits {
  std::size_t oneString;
  std::size_t together;
};

/// The limits for a child of this process. Any thread.
[[nodiscard]] ArgumentLimits argumentLimits();

/// What strings take of `ArgumentLimits::together`. Pure.
[[nodiscard]] std::size_t startBytes(const std::vector<std::string>& strings);

}  // namespace quillon::platform
