#include "platform/files/descriptor.h"

#include <fcntl.h>
#include <unistd.h>

#include "platform/files/standard_streams.h"

namespace quillon::platform {

void UniqueFd::reset() {
  if (isOpen()) ::close(std::exchange(descriptor_, none));
}

void occupyClosedStandardStreams() {
  for (const bool closed : closedStandardStreams()) {
    // The lowest free number is the closed stream's own: those below it are open by now. Kept.
    if (closed) (void)::open("/dev/null", O_RDWR | O_CLOEXEC);
  }
}

}  // namespace quillon::platform
