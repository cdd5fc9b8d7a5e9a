#include <sys/sysctl.h>
#include <unistd.h>

#include "platform/host/host.h"
#include "platform/process/environment.h"

namespace quillon::platform {
namespace {

/// 0 when the system does not tell.
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

// As Foundation finds it for whoever asks NSFileManager, so that both name the same folder: HOME
// counts only for a user whom the database does not know.
Path homeFolder() {
  const auto fixed = startEnvironment().value("CFFIXED_USER_HOME");
  if (fixed && !fixed->empty() && ::issetugid() == 0) return *fixed;
  const uid_t effectiveUser = ::geteuid();
  if (const auto home = homeFolderOf(effectiveUser != 0 ? effectiveUser : ::getuid())) return *home;
  const auto home = startEnvironment().value("HOME");
  return home && !home->empty() ? *home : "/";
}

}  // namespace quillon::platform
