#pragma once

#include <string>
#include <vector>

#include "platform/files/path.h"

/// Processes that outlive this one.
namespace quillon::platform {

/// Starts a child as the leader of a new session and forgets it: nobody waits for it. It inherits
/// every descriptor that does not close on exec, the signal mask and dispositions as the launcher
/// received them (but for the two signals that the C library reserves), and the start environment.
/// `argumentVector` starts with argument zero; a string ends at its first NUL. Main thread. Returns
/// 0, or the errno value of the failed start.
[[nodiscard]] int spawnInNewSession(const Path& executable,
                                    const std::vector<std::string>& argumentVector);

}  // namespace quillon::platform
