#include <system_error>

#include "platform/bundle.h"

namespace quillon::platform {

Path executableLocation() {
  std::error_code ignored;
  return std::filesystem::read_symlink("/proc/self/exe", ignored);
}

}  // namespace quillon::platform
