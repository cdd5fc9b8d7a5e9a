#pragma once

#include <sys/types.h>

#include <shared_mutex>
#include <string_view>

/// This process: what it writes to standard error, and its end.
namespace quillon::platform {

/// Gives each closed one of the descriptors 0, 1 and 2 a placeholder, so that no file, pipe or
/// socket opened later becomes a standard stream. The placeholders close on exec: what was closed
/// for the launcher is closed for its children. Call it first in the process. Main thread.
void occupyClosedStandardStreams();

/// Writes to standard error in a single write and ignores how much of it arrives. A reader that has
/// gone or a file that may not grow does not end the process, which ignores SIGPIPE and SIGXFSZ
/// from here on. Main thread.
void writeToStandardError(std::string_view text);

/// `endProcess` waits while any thread holds this lock: for work that must not be left half done.
/// Blocks forever once the process is being ended. Any thread.
[[nodiscard]] std::shared_lock<std::shared_mutex> delayProcessEnd();

/// The child that must not outlive this process, 0 for none. `endProcess` kills it. Call it while
/// holding `delayProcessEnd`, together with the start or the reaping of the child, so that no other
/// process is killed.
void setChildToKill(pid_t child);

/// Ends the process at once, without destructors and exit handlers: other threads may be running,
/// and nothing that they use may be destroyed under them. Any thread.
[[noreturn]] void endProcess(int status);

}  // namespace quillon::platform
