#include "platform/files/descriptor.h"

#include <fcntl.h>
#include <unistd.h>

namespace quillon::platform {

void UniqueFd::reset() {
  if (isOpen()) ::close(std::exchange(descriptor_, none));
}

void occupyClosedStandardStreams() {
  // Not by poll, which on a Mac takes a terminal or another device for a closed descriptor.
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (::fcntl(stream, F_GETFD) != -1) continue;
    // The lowest free number is the closed stream's own: those below it are open by now. Kept.
    (void)::open("/dev/null", O_RDWR | O_CLOEXEC);
  }
}

}  // namespace quillon::platform
