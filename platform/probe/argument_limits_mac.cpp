#include <unistd.h>

#include "platform/probe/argument_limits.h"

namespace quillon::platform {

ArgumentLimits argumentLimits() {
  const auto total = static_cast<std::size_t>(::sysconf(_SC_ARG_MAX));
  return {total, total};
}

}  // namespace quillon::platform
