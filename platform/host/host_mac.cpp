#include <sys/sysctl.h>
#include <unistd.h>

#include "platform/host/host.h"
#include "platform/process/environment.h"

namespace quillon::platform {
namespace {

/// 0 if the system does not report it.
template <class Number>
Number systemValue(const char* name) {
  Number value{};
  std::size_t size = sizeof(value);
  return ::sysctlbyname(name, &value, &size, nullptr, 0) == 0 ? value : Number{};
}

}  // namespace

std::uint64_t physicalMemory() {
  return systemValue<std::uint64_t>("hw.memsize");
}

int activeProcessorCount() {
  return systemValue<int>("hw.activecpu");
}

// Follows the rules of Foundation's NSFileManager, so that both return the same folder: HOME is
// used only for a user who is not in the database.
Path homeFolder() {
  const auto fixed = startEnvironment().value("CFFIXED_USER_HOME");
  if (fixed && !fixed->empty() && ::issetugid() == 0) return *fixed;
  const uid_t effectiveUser = ::geteuid();
  if (const auto home = homeFolderOf(effectiveUser != 0 ? effectiveUser : ::getuid())) return *home;
  const auto home = startEnvironment().value("HOME");
  return home && !home->empty() ? *home : "/";
}

}  // namespace quillon::platform
