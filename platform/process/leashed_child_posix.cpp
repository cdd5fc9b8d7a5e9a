#include "platform/process/leashed_child.h"

#include <sys/wait.h>

#include <algorithm>
#include <cerrno>
#include <thread>

namespace quillon::platform {
namespace {

bool endsTheProcess(int signal) {
  struct sigaction current = {};
  ::sigaction(signal, nullptr, &current);
  return (current.sa_flags & SA_SIGINFO) == 0 && current.sa_handler == SIG_DFL;
}

}  // namespace

LeashedChild::~LeashedChild() {
  if (id_ != 0) endNow();
}

int LeashedChild::start(const Spawn& spawn) {
  const LeashChange change;
  overrideSignals();
  const int error = spawn(id_);
  if (error != 0) {
    id_ = 0;
    giveSignalsBack();
  }
  LeashChange::put(id_);
  return error;
}

int LeashedChild::waitUntil(Clock::time_point deadline) {
  constexpr std::chrono::milliseconds longestPause{10};
  // A child closes its streams a moment before it ends.
  for (Clock::duration pause = std::chrono::microseconds(100); !hasEnded(WNOHANG);) {
    if (Clock::now() >= deadline) {
      endNow();
      return status_;
    }
    std::this_thread::sleep_for(pause);
    pause = std::min<Clock::duration>(2 * pause, longestPause);
  }
  reap();
  return status_;
}

/// Leaves an ended child unreaped, so that its number stays its own as long as it is on the leash.
bool LeashedChild::hasEnded(int options) const {
  siginfo_t ended{};
  int result = 0;
  do {
    result = ::waitid(P_PID, static_cast<id_t>(id_), &ended, WEXITED | WNOWAIT | options);
  } while (result == -1 && errno == EINTR);
  return result == -1 || ended.si_pid != 0;
}

void LeashedChild::endNow() {
  ::kill(id_, SIGKILL);
  (void)hasEnded(0);
  reap();
}

void LeashedChild::reap() {
  const LeashChange change;
  while (::waitpid(id_, &status_, 0) == -1 && errno == EINTR) {
  }
  id_ = 0;
  LeashChange::put(0);
  giveSignalsBack();
}

void LeashedChild::overrideSignals() {
  // While SIGCHLD is ignored, which a launcher may well inherit, an ended child leaves no status.
  reapable_.emplace(SIGCHLD, SIG_DFL);
  for (std::size_t i = 0; i < endings_.size(); ++i) {
    if (endsTheProcess(endingSignals[i]))
      endings_[i].emplace(endingSignals[i], endWithLeashedChild);
  }
}

void LeashedChild::giveSignalsBack() {
  reapable_.reset();
  for (auto& ending : endings_) ending.reset();
}

}  // namespace quillon::platform
