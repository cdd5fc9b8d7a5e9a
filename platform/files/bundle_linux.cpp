#include <sys/auxv.h>
#include <unistd.h>

#include <array>
#include <climits>

#include "platform/files/bundle.h"

namespace quillon::platform {
namespace {

/// The path that the kernel was told to execute: all there is where /proc is not mounted.
Path executedPath() {
  const auto* const path = reinterpret_cast<const char*>(::getauxval(AT_EXECFN));
  return path == nullptr ? Path() : resolvedPath(path);
}

}  // namespace

Path executableLocation() {
  std::array<char, PATH_MAX> target{};
  const ssize_t length = ::readlink("/proc/self/exe", target.data(), target.size());
  if (length <= 0 || static_cast<std::size_t>(length) == target.size()) return executedPath();
  return std::string_view(target.data(), static_cast<std::size_t>(length));
}

}  // namespace quillon::platform
