#include "platform/process/environment.h"
#include "platform/process/new_session.h"
#include "platform/process/signal_dispositions.h"
#include "platform/process/spawn_parts.h"

namespace quillon::platform {

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
