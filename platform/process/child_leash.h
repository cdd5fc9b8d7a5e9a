#pragma once

#include <sys/types.h>

#include <array>
#include <csignal>

/// The leash of the one child that must not outlive this process. Whoever ends the process kills
/// what is on it first: `endProcess`, and `endWithLeashedChild` as a signal's handler.
///
/// No child may slip off, and no process number may be killed that has been reaped and given to
/// somebody else. So a child is started, put on the leash and reaped only within a `LeashChange`,
/// which is a lock that a signal handler can take too: an atomic that is waited for. Within it the
/// ending signals are blocked for the thread, as a handler there would wait for ever; and nothing
/// is allocated, as a handler elsewhere may have interrupted its thread in the midst of that.
namespace quillon::platform {

/// The signals that end a process from outside in the ordinary way.
inline constexpr std::array endingSignals{SIGHUP, SIGINT, SIGTERM};

/// While one stands, the thread that made it may change what is on the leash, and nobody ends the
/// process. Not to be nested. Making one waits for ever once the process is being ended.
class LeashChange {
 public:
  LeashChange();
  LeashChange(const LeashChange&) = delete;
  LeashChange& operator=(const LeashChange&) = delete;
  ~LeashChange();

  /// Puts a child on the leash in place of the former; 0 for none.
  static void put(pid_t child);

 private:
  sigset_t formerMask_{};
};

/// Kills the child on the leash and lets nobody change it any more; waits while somebody does.
/// False when another caller has come first, and ends the process. Whoever gets true ends it at
/// once. Any thread, signal handlers too.
[[nodiscard]] bool killLeashedChild();

/// Kills the child on the leash, then lets the signal end the process as if it had no handler. A
/// signal handler.
void endWithLeashedChild(int signal);

}  // namespace quillon::platform
