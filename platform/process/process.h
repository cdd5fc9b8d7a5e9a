#pragma once

#include <sys/types.h>

#include <shared_mutex>
#include <string_view>

/// Standard error and the end of this process.
namespace quillon::platform {

/// Opens a placeholder for each of the descriptors 0, 1 and 2 that is closed, so that no file, pipe
/// or socket opened later becomes a standard stream. The placeholders close on exec: a stream that
/// was closed for the launcher is closed for its children. Call it first in the process. Main
/// thread.
void occupyClosedStandardStreams();

/// Writes to standard error in a single write. A partial or failed write is ignored. After this
/// call the process ignores SIGPIPE and SIGXFSZ, so that a closed pipe or a file at its size limit
/// does not end it. Main thread.
void writeToStandardError(std::string_view text);

/// `endProcess` waits while any thread holds this lock. It protects work that must not be
/// interrupted. Blocks indefinitely once the process is ending. Any thread.
[[nodiscard]] std::shared_lock<std::shared_mutex> delayProcessEnd();

/// Sets the child that must not outlive this process, 0 to reset it. `endProcess` kills it. Call it
/// while holding `delayProcessEnd`, together with the start or the reaping of the child, so that no
/// other process is killed.
void setChildToKill(pid_t child);

/// Ends the process at once, without destructors and exit handlers: other threads may be running,
/// and no object that they use may be destroyed. Any thread.
[[noreturn]] void endProcess(int status);

}  // namespace quillon::platform
