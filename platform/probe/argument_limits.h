#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace quillon::platform {

/// The system's limits for starting a program: the bytes of one string, including its NUL, and of
/// all arguments and environment entries together with their pointers.
struct ArgumentLimits {
  std::size_t oneString;
  std::size_t together;
};

/// The limits for a child of this process. Any thread.
[[nodiscard]] ArgumentLimits argumentLimits();

/// The bytes that strings use of `ArgumentLimits::together`. Pure.
[[nodiscard]] std::size_t startBytes(const std::vector<std::string>& strings);

}  // namespace quillon::platform
