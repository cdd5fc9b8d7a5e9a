#include "platform/files/standard_streams.h"

#include <poll.h>
#include <unistd.h>

namespace quillon::platform {

std::array<bool, 3> closedStandardStreams() {
  std::array<pollfd, 3> streams{
      {{STDIN_FILENO, 0, 0}, {STDOUT_FILENO, 0, 0}, {STDERR_FILENO, 0, 0}}};
  (void)::poll(streams.data(), streams.size(), 0);
  const auto isClosed = [](const pollfd& stream) { return (stream.revents & POLLNVAL) != 0; };
  return {isClosed(streams[0]), isClosed(streams[1]), isClosed(streams[2])};
}

}  // namespace quillon::platform
