#include <unistd.h>

#include "platform/system/spawn_parts.h"

namespace quillon::platform {

int keepOnlyStandardStreams(SpawnFileActions& actions, SpawnAttributes&) {
  return ::posix_spawn_file_actions_addclosefrom_np(actions.get(), STDERR_FILENO + 1);
}

}  // namespace quillon::platform
