#include <sched.h>
#include <sys/sysinfo.h>
#include <unistd.h>

#include "platform/host/host.h"
#include "platform/process/environment.h"

namespace quillon::platform {

std::uint64_t physicalMemory() {
  struct sysinfo machine = {};
  if (::sysinfo(&machine) != 0) return 0;
  return std::uint64_t{machine.totalram} * machine.mem_unit;
}

int activeProcessorCount() {
  cpu_set_t processors;
  CPU_ZERO(&processors);
  if (::sched_getaffinity(0, sizeof(processors), &processors) != 0) return 0;
  return CPU_COUNT(&processors);
}

Path homeFolder() {
  const auto home = startEnvironment().value("HOME");
  if (home && !home->empty()) return *home;
  return homeFolderOf(::getuid()).value_or("/");
}

}  // namespace quillon::platform
