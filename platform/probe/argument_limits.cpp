#include "platform/probe/argument_limits.h"

namespace quillon::platform {

std::size_t startBytes(const std::vector<std::string>& strings) {
  std::size_t bytes = 0;
  for (const std::string& string : strings) bytes += string.size() + 1 + sizeof(char*);
  return bytes;
}

}  // namespace quillon::platform
