#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>

#include "platform/probe/other_process.h"

namespace quillon::platform {

bool isRunning(std::int64_t processId) {
  const auto id = static_cast<pid_t>(processId);
  // 0 and negative numbers are process groups.
  if (id <= 0 || id != processId) return false;
  return ::kill(id, 0) == 0 || errno != ESRCH;
}

std::string hostName() {
  std::array<char, 256> name{};
  return ::gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "";
}

}  // namespace quillon::platform
