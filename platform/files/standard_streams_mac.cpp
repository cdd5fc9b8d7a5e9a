#include "platform/files/standard_streams.h"

#include <fcntl.h>
#include <unistd.h>

namespace quillon::platform {

// Not all three by one poll(2), which takes a terminal or another device for a closed descriptor.
std::array<bool, 3> closedStandardStreams() {
  const auto isClosed = [](int stream) { return ::fcntl(stream, F_GETFD) == -1; };
  return {isClosed(STDIN_FILENO), isClosed(STDOUT_FILENO), isClosed(STDERR_FILENO)};
}

}  // namespace quillon::platform
