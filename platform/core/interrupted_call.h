#pragma once

#include <cerrno>

namespace quillon::platform {

/// Makes a system call again as long as a signal interrupts it. Never for `close`.
template <class Call>
auto retryInterrupted(Call call) {
  auto result = call();
  while (result == -1 && errno == EINTR) result = call();
  return result;
}

}  // namespace quillon::platform
