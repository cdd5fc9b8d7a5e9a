#include <sched.h>
#include <unistd.h>

#include <cstring>

#include "platform/system/environment.h"
#include "platform/system/system.h"
#include "platform/system/user_database.h"

namespace quillon::platform {

std::uint64_t physicalMemory() {
  const long pages = ::sysconf(_SC_PHYS_PAGES);
  const long pageBytes = ::sysconf(_SC_PAGESIZE);
  if (pages <= 0 || pageBytes <= 0) return 0;
  return static_cast<std::uint64_t>(pages) * static_cast<std::uint64_t>(pageBytes);
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

std::string errorText(int errorNumber) {
  return std::strerror(errorNumber);  // For any thread since glibc 2.32.
}

}  // namespace quillon::platform
