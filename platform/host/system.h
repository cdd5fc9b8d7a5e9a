#pragma once

#include <cstdint>
#include <shared_mutex>
#include <string>
#include <string_view>

#include "platform/files/path.h"

/// The machine and the user. Any thread.
namespace quillon::platform {

/// Main memory in bytes; 0 when the system does not tell.
[[nodiscard]] std::uint64_t physicalMemory();

/// Processors that this process and its children may run on, as a browser counts them; 0 when the
/// system does not tell or, on Linux, has more than 1,024.
[[nodiscard]] int activeProcessorCount();

/// The user's home folder. On Linux HOME when it is set and not empty, else the user database's. On
/// a Mac as for every application: CFFIXED_USER_HOME, the user database's, only then HOME. "/" when
/// none knows one, so that nothing of the current folder is taken for the user's.
[[nodiscard]] Path homeFolder();

/// Where the launcher keeps what belongs to no profile: "Library/Application Support/Quillon" below
/// the home folder. It need not exist.
[[nodiscard]] Path perUserFolder();

/// The system's text for an error number, in the locale of the process.
[[nodiscard]] std::string errorText(int errorNumber);

/// Writes to standard error in a single write. How much of it arrives is not looked at; a reader
/// that has gone or a file that may not grow does not end the process, which from here on ignores
/// SIGPIPE and SIGXFSZ.
void writeToStandardError(std::string_view text);

/// `endProcess` waits while anybody has this lock: for what is not to be left half done. Any
/// thread.
[[nodiscard]] std::shared_lock<std::shared_mutex> delayProcessEnd();

/// Ends the process at once, without destructors and exit handlers: other threads may be running,
/// and nothing they use may be torn down under them. A child that `runChild` waits for is killed.
[[noreturn]] void endProcess(int status);

}  // namespace quillon::platform
