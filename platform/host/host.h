#pragma once

#include <sys/types.h>

#include <cstdint>
#include <optional>

#include "platform/core/path.h"

/// The machine and the user. Any thread.
namespace quillon::platform {

/// Main memory in bytes; 0 if the system does not report it.
[[nodiscard]] std::uint64_t physicalMemory();

/// Processors that this process and its children may run on, as a browser counts them; 0 if the
/// system does not report them or, on Linux, has more than 1,024.
[[nodiscard]] int activeProcessorCount();

/// The user's home folder. On Linux: HOME if it is set and not empty, otherwise the home folder in
/// the user database. On a Mac the order is that of every application: CFFIXED_USER_HOME, the user
/// database, HOME. If there is none, "/", so that nothing in the current folder is mistaken for the
/// user's.
[[nodiscard]] Path homeFolder();

/// The home folder of a user in the system's user database; nothing if the user is unknown. May
/// wait for a directory service.
[[nodiscard]] std::optional<Path> homeFolderOf(uid_t user);

}  // namespace quillon::platform
