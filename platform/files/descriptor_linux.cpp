#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <array>

#include "platform/files/descriptor.h"

namespace quillon::platform {

void UniqueFd::reset() {
  if (isOpen()) ::close(std::exchange(descriptor_, none));
}

std::optional<Pipe> Pipe::open() {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) return std::nullopt;
  return Pipe{UniqueFd(ends[0]), UniqueFd(ends[1])};
}

void occupyClosedStandardStreams() {
  std::array<pollfd, 3> streams{
      {{STDIN_FILENO, 0, 0}, {STDOUT_FILENO, 0, 0}, {STDERR_FILENO, 0, 0}}};
  if (::poll(streams.data(), streams.size(), 0) <= 0) return;
  for (const pollfd& stream : streams) {
    if ((stream.revents & POLLNVAL) == 0) continue;
    // The lowest free number is the closed stream's own: those below it are open by now. Kept.
    (void)::open("/dev/null", O_RDWR | O_CLOEXEC);
  }
}

}  // namespace quillon::platform
