#include <unistd.h>

#include "platform/process/spawn.h"

namespace quillon::platform {

int keepOnlyStandardStreams(SpawnFileActions& actions, SpawnAttributes&) {
  return ::posix_spawn_file_actions_addclosefrom_np(actions.get(), STDERR_FILENO + 1);
}

int spawn(pid_t& id, const Path& executable, const posix_spawn_file_actions_t* actions,
          const SpawnAttributes& attributes, char* const* argumentVector,
          char* const* environment) {
  return ::posix_spawn(&id, executable.cText(), actions, attributes.get(), argumentVector,
                       environment);
}

}  // namespace quillon::platform
