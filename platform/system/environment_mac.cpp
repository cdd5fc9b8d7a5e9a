#include <crt_externs.h>

#include "platform/system/environment.h"

namespace quillon::platform {

char* const* liveEnvironment() {
  return *::_NSGetEnviron();
}

}  // namespace quillon::platform
