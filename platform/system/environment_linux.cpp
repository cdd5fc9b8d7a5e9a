#include <unistd.h>

#include "platform/system/environment.h"

namespace quillon::platform {

char* const* liveEnvironment() {
  return ::environ;
}

}  // namespace quillon::platform
