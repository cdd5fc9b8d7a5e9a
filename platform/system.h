#pragma once

#include <chrono>
#include <cstdint>
#include <string>

#include "platform/files.h"

/// The machine and the user. Any thread.
namespace quillon::platform {

/// Main memory in bytes; 0 when the system does not tell.
[[nodiscard]] std::uint64_t physicalMemory();

/// Processors in use by the system, as a browser would count them; 0 when it does not tell.
[[nodiscard]] int activeProcessorCount();

/// The user's home folder: HOME when it is set and not empty, else the user database's; empty when
/// neither knows one.
[[nodiscard]] Path homeFolder();

/// Where the launcher keeps what belongs to no profile: "Library/Application Support/Quillon" below
/// the home folder. It need not exist.
[[nodiscard]] Path perUserFolder();

/// The system's text for an error number, in the locale of the process.
[[nodiscard]] std::string errorText(int errorNumber);

/// Writes to standard error in a single write. Whether it arrives is not looked at; a reader that
/// has gone does not end the process. From here on the process ignores SIGPIPE.
void writeToStandardError(std::string_view text);

/// Ends the process at once, without destructors and exit handlers: other threads may be running,
/// and nothing they use may be torn down under them.
[[noreturn]] void endProcess(int status);

}  // namespace quillon::platform
