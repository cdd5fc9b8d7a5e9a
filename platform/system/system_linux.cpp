#include <sched.h>

#include "platform/system/system.h"

namespace quillon::platform {

int activeProcessorCount() {
  cpu_set_t processors;
  CPU_ZERO(&processors);
  if (::sched_getaffinity(0, sizeof(processors), &processors) != 0) return 0;
  return CPU_COUNT(&processors);
}

}  // namespace quillon::platform
