#include "platform/process/child_leash.h"

#include <poll.h>
#include <unistd.h>

#include <atomic>

namespace quillon::platform {
namespace {

enum class Leash { free, changing, ended };

// Global, as a signal handler can reach nothing else.
constinit std::atomic<Leash> leash{Leash::free};
constinit std::atomic<pid_t> leashedChild{0};
static_assert(std::atomic<Leash>::is_always_lock_free && std::atomic<pid_t>::is_always_lock_free);

/// Goes from free to `next`; false once the leash has ended.
bool takeLeash(Leash next) {
  for (Leash found = Leash::free; !leash.compare_exchange_strong(found, next);
       found = Leash::free) {
    if (found == Leash::ended) return false;
    ::poll(nullptr, 0, 1);  // of all ways to wait the one that a handler may use
  }
  return true;
}

}  // namespace

LeashChange::LeashChange() {
  sigset_t blocked;
  sigemptyset(&blocked);  // On a Mac these are macros.
  for (const int number : endingSignals) sigaddset(&blocked, number);
  ::pthread_sigmask(SIG_BLOCK, &blocked, &formerMask_);
  while (!takeLeash(Leash::changing)) ::pause();
}

LeashChange::~LeashChange() {
  leash = Leash::free;
  ::pthread_sigmask(SIG_SETMASK, &formerMask_, nullptr);
}

void LeashChange::put(pid_t child) {
  leashedChild = child;
}

bool killLeashedChild() {
  if (!takeLeash(Leash::ended)) return false;
  if (const pid_t child = leashedChild; child != 0) ::kill(child, SIGKILL);
  return true;
}

void endWithLeashedChild(int signal) {
  // Who has come first ends the process; it may be this very thread, which the signal interrupted.
  if (!killLeashedChild()) return;
  struct sigaction byDefault = {};
  byDefault.sa_handler = SIG_DFL;
  ::sigaction(signal, &byDefault, nullptr);
  sigset_t self;
  sigemptyset(&self);
  sigaddset(&self, signal);
  (void)::raise(signal);
  ::pthread_sigmask(SIG_UNBLOCK, &self, nullptr);
  // Only the first process of a container is still here.
  constexpr int signalBase = 128;
  ::_exit(signalBase + signal);
}

}  // namespace quillon::platform
