#include "platform/process/environment.h"
#include "platform/process/signals.h"
#include "platform/process/spawn.h"

namespace quillon::platform {

std::vector<char*> pointersTo(const std::vector<std::string>& strings) {
  std::vector<char*> pointers;
  pointers.reserve(strings.size() + 1);
  // The exec family takes char* for historical reasons and does not write to the strings (POSIX).
  for (const std::string& string : strings) pointers.push_back(const_cast<char*>(string.c_str()));
  pointers.push_back(nullptr);
  return pointers;
}

int spawnInNewSession(const Path& executable, const std::vector<std::string>& argumentVector) {
  restoreSignalDispositions();
  SpawnAttributes attributes;
  if (const int error = attributes.addFlags(POSIX_SPAWN_SETSID)) return error;
  if (const int error = attributes.setSignalMask(startSignalMask())) return error;
  pid_t ignored = 0;
  return spawn(ignored, executable, nullptr, attributes, pointersTo(argumentVector).data(),
               startEnvironment().entries());
}

}  // namespace quillon::platform
