#include <unistd.h>

#include <array>
#include <climits>

#include "platform/files/bundle.h"

namespace quillon::platform {

Path executableLocation() {
  std::array<char, PATH_MAX> target{};
  const ssize_t length = ::readlink("/proc/self/exe", target.data(), target.size());
  if (length <= 0 || static_cast<std::size_t>(length) == target.size()) return {};
  return {target.data(), target.data() + length};
}

}  // namespace quillon::platform
