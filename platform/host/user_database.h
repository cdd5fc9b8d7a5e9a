#pragma once

#include <sys/types.h>

#include <optional>

#include "platform/files/path.h"

namespace quillon::platform {

/// The home folder of a user; nothing when the system's user database does not tell. May wait for a
/// directory service. Any thread.
[[nodiscard]] std::optional<Path> homeFolderOf(uid_t user);

}  // namespace quillon::platform
