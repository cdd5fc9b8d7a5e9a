#include "platform/files/descriptor.h"

#include <fcntl.h>
#include <unistd.h>

namespace quillon::platform {

void UniqueFd::reset() {
  if (isOpen()) ::close(std::exchange(descriptor_, none));
}

void occupyClosedStandardStreams() {
  // Always the lowest free number is given out: a closed stream's own, until all three are open.
  UniqueFd placeholder;
  do {
    (void)placeholder.release();
    placeholder = UniqueFd(::open("/dev/null", O_RDWR | O_CLOEXEC));
  } while (placeholder.isOpen() && placeholder.get() <= STDERR_FILENO);
}

}  // namespace quillon::platform
