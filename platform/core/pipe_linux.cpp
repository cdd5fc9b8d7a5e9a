#include <fcntl.h>
#include <unistd.h>

#include <array>

#include "platform/core/descriptor.h"

namespace quillon::platform {

std::optional<Pipe> Pipe::open() {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) return std::nullopt;
  return Pipe{UniqueFd(ends[0]), UniqueFd(ends[1])};
}

}  // namespace quillon::platform
