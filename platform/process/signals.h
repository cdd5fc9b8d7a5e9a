#pragma once

#include <array>
#include <csignal>
#include <optional>

#include "platform/core/descriptor.h"

/// Signals of this process, and how its children find them.
namespace quillon::platform {

/// The calling thread's mask at the first call, which main() makes before it starts anything.
/// Children get this one: a thread that starts a child may block signals, as those of a Mac's
/// dispatch queues do (SIGTERM, SIGINT, SIGHUP, SIGALRM, SIGCHLD). Any thread.
[[nodiscard]] const sigset_t& startSignalMask();

/// Keeps the disposition of every signal, before a UI toolkit that changes some is loaded. Main
/// thread.
void keepSignalDispositions();

/// Restores the kept dispositions; without kept ones nothing happens. Main thread.
void restoreSignalDispositions();

/// Gives a signal another disposition while the object exists, then restores the previous one. For
/// the whole process: two threads must not override the same signal at once.
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

/// The signals that end a process from outside in the ordinary way.
inline constexpr std::array terminationSignals{SIGHUP, SIGINT, SIGTERM};

/// Turns termination signals into bytes of a pipe while the object exists, so that a thread that
/// polls can clean up before the process ends. Only signals that would end the process are caught:
/// ignored ones stay ignored. The handler does nothing but write the byte. One object at a time.
class TerminationWatch {
 public:
  explicit TerminationWatch(Pipe pipe);
  TerminationWatch(const TerminationWatch&) = delete;
  TerminationWatch& operator=(const TerminationWatch&) = delete;
  ~TerminationWatch() { (void)stop(); }

  /// Readable once a signal has arrived.
  [[nodiscard]] int descriptor() const { return pipe_.readEnd.get(); }

  /// Restores the dispositions and returns the signal that has arrived, 0 for none. A signal that
  /// arrives later ends the process.
  [[nodiscard]] int stop();

 private:
  Pipe pipe_;
  std::array<std::optional<SignalOverride>, terminationSignals.size()> overrides_;
};

/// Ends the process by a signal, as if it had no handler. Any thread; signal handlers, too.
[[noreturn]] void endBySignal(int number);

}  // namespace quillon::platform
