#include <unistd.h>

#include <algorithm>

#include "platform/probe/argument_limits.h"

namespace quillon::platform {

ArgumentLimits argumentLimits() {
  // The kernel's MAX_ARG_STRLEN, and its maximum for the limit that the C library derives from the
  // stack limit.
  constexpr std::size_t pagesOfOneString = 32;
  constexpr std::size_t highestTotal = std::size_t{6} << 20;
  const auto total = static_cast<std::size_t>(::sysconf(_SC_ARG_MAX));
  return {pagesOfOneString * static_cast<std::size_t>(::sysconf(_SC_PAGESIZE)),
          std::min(total, highestTotal)};
}

}  // namespace quillon::platform
