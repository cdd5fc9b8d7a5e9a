#include "platform/process/spawn_parts.h"

namespace quillon::platform {

std::vector<char*> pointersTo(const std::vector<std::string>& strings) {
  std::vector<char*> pointers;
  pointers.reserve(strings.size() + 1);
  // The exec family takes char* for historical reasons and does not write to the strings (POSIX).
  for (const std::string& string : strings) pointers.push_back(const_cast<char*>(string.c_str()));
  pointers.push_back(nullptr);
  return pointers;
}

}  // namespace quillon::platform
