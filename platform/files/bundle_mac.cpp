#include <mach-o/dyld.h>

#include <climits>
#include <cstdint>
#include <string>

#include "platform/files/bundle.h"

namespace quillon::platform {
namespace {

/// The path by which the process was started. It may contain symbolic links and "..". Empty on
/// failure.
std::string startPath() {
  std::string path(PATH_MAX, '\0');
  auto size = static_cast<std::uint32_t>(path.size());
  if (::_NSGetExecutablePath(path.data(), &size) == 0) return path;
  path.resize(size);
  return ::_NSGetExecutablePath(path.data(), &size) == 0 ? path : std::string();
}

}  // namespace

Path executableLocation() {
  return resolvedPath(startPath());
}

}  // namespace quillon::platform
