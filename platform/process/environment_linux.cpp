#include <unistd.h>

#include "platform/process/environment.h"

namespace quillon::platform {

char* const* liveEnvironment() {
  return ::environ;
}

}  // namespace quillon::platform
