#include <crt_externs.h>

#include "platform/process/environment.h"

namespace quillon::platform {

char* const* liveEnvironment() {
  return *::_NSGetEnviron();
}

}  // namespace quillon::platform
