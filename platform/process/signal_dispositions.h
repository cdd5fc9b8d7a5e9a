#pragma once

#include <csignal>

/// The signal mask and dispositions that the process was started with.
namespace quillon::platform {

/// The calling thread's mask at the first call, which main() makes before it starts anything.
/// Children get this one: a thread that starts a child may block signals, as those of a Mac's
/// dispatch queues do (SIGTERM, SIGINT, SIGHUP, SIGALRM, SIGCHLD). Any thread.
[[nodiscard]] const sigset_t& startSignalMask();

/// Keeps the disposition of every signal, before a UI toolkit that changes some is loaded. Main
/// thread.
void keepSignalDispositions();

/// Puts the kept dispositions back; without kept ones nothing happens. Main thread.
void restoreSignalDispositions();

}  // namespace quillon::platform
