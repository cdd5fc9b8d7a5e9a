#include "platform/core/pipe_mac.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>

#include "platform/core/descriptor.h"

namespace quillon::platform {

std::mutex& unmarkedPipes() {
  // Never destroyed: a background thread may spawn while the process ends.
  static std::mutex& mutex = *new std::mutex;
  return mutex;
}

std::optional<Pipe> Pipe::open() {
  const std::lock_guard lock(unmarkedPipes());
  std::array<int, 2> ends{};
  if (::pipe(ends.data()) != 0) return std::nullopt;
  for (const int end : ends) (void)::fcntl(end, F_SETFD, FD_CLOEXEC);
  return Pipe{UniqueFd(ends[0]), UniqueFd(ends[1])};
}

}  // namespace quillon::platform
