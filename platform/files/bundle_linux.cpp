#include <sys/auxv.h>
#include <unistd.h>

#include <array>
#include <climits>
#include <system_error>

#include "platform/files/bundle.h"

namespace quillon::platform {
namespace {

/// The path that the kernel was told to execute: all there is where /proc is not mounted.
Path executedPath() {
  const auto* const path = reinterpret_cast<const char*>(::getauxval(AT_EXECFN));
  std::error_code unknown;
  return path == nullptr ? Path() : std::filesystem::canonical(path, unknown);
}

}  // namespace

Path executableLocation() {
  std::array<char, PATH_MAX> target{};
  const ssize_t length = ::readlink("/proc/self/exe", target.data(), target.size());
  if (length <= 0 || static_cast<std::size_t>(length) == target.size()) return executedPath();
  return {target.data(), target.data() + length};
}

}  // namespace quillon::platform
