#pragma once

#include <array>
#include <csignal>
#include <optional>

#include "platform/core/descriptor.h"

/// The signals of this process, and the signal state that its children get.
namespace quillon::platform {

/// The calling thread's mask at the first call, which main() makes before it starts any thread or
/// process. Children get this mask: a thread that starts a child may block signals, as those of a
/// Mac's dispatch queues do (SIGTERM, SIGINT, SIGHUP, SIGALRM, SIGCHLD). Any thread.
[[nodiscard]] const sigset_t& startSignalMask();

/// Saves the disposition of every signal, before a UI toolkit that changes some of them is loaded.
/// Main thread.
void keepSignalDispositions();

/// Restores the saved dispositions. Does nothing if none were saved. Main thread.
void restoreSignalDispositions();

/// Changes the disposition of a signal while the object exists, then restores the previous one.
/// This affects the whole process: two threads must not override the same signal at the same time.
class SignalOverride {
 public:
  SignalOverride(int number, void (*disposition)(int), int flags = 0);
  SignalOverride(const SignalOverride&) = delete;
  SignalOverride& operator=(const SignalOverride&) = delete;
  ~SignalOverride() { ::sigaction(number_, &previous_, nullptr); }

 private:
  int number_;
  struct sigaction previous_ = {};
};

/// The signals by which a user or the system normally ends a process.
inline constexpr std::array terminationSignals{SIGHUP, SIGINT, SIGTERM};

/// Writes a byte to a pipe for each termination signal while the object exists, so that a thread
/// that polls the pipe can clean up before the process ends. Only signals that would end the
/// process are caught: ignored ones stay ignored. The handler only writes the byte. If a signal has
/// arrived, the destructor ends the process by it. One object at a time.
class TerminationWatch {
 public:
  explicit TerminationWatch(Pipe pipe);
  TerminationWatch(const TerminationWatch&) = delete;
  TerminationWatch& operator=(const TerminationWatch&) = delete;
  ~TerminationWatch();

  /// Readable once a signal has arrived.
  [[nodiscard]] int descriptor() const { return pipe_.readEnd.get(); }

 private:
  Pipe pipe_;
  std::array<std::optional<SignalOverride>, terminationSignals.size()> overrides_;
};

/// Ends the process by a signal, as if it had no handler. Any thread, and signal handlers.
[[noreturn]] void endBySignal(int number);

}  // namespace quillon::platform
