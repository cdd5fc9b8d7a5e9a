#include "platform/core/descriptor.h"

#include <unistd.h>

namespace quillon::platform {

void UniqueFd::reset() {
  if (isOpen()) ::close(std::exchange(descriptor_, none));
}

}  // namespace quillon::platform
