#include <fcntl.h>
#include <unistd.h>

#include "platform/core/pipe_mac.h"
#include "platform/process/spawn.h"

namespace quillon::platform {

int keepOnlyStandardStreams(SpawnFileActions& actions, SpawnAttributes& attributes) {
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    // A placeholder for a closed stream is not inherited. A descriptor that the actions create is
    // inherited anyway.
    if ((::fcntl(stream, F_GETFD) & FD_CLOEXEC) != 0) continue;
    if (const int error = ::posix_spawn_file_actions_addinherit_np(actions.get(), stream)) {
      return error;
    }
  }
  return attributes.addFlags(POSIX_SPAWN_CLOEXEC_DEFAULT);
}

int spawn(pid_t& id, const Path& executable, const posix_spawn_file_actions_t* actions,
          const SpawnAttributes& attributes, char* const* argumentVector,
          char* const* environment) {
  // The engine inherits every descriptor that does not close on exec, so no pipe may be without
  // that flag during the spawn.
  const std::lock_guard lock(unmarkedPipes());
  return ::posix_spawn(&id, executable.cText(), actions, attributes.get(), argumentVector,
                       environment);
}

}  // namespace quillon::platform
