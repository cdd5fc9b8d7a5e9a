#include <unistd.h>

#include "platform/dispatch/dispatch.h"

namespace quillon::platform {

bool isMainThread() {
  return ::gettid() == ::getpid();
}

}  // namespace quillon::platform
