#include "platform/process/signals.h"

#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <thread>

namespace quillon::platform {
namespace {

/// This includes SIGKILL and SIGSTOP: reading their dispositions works, and restoring them fails
/// without effect.
std::array<struct sigaction, NSIG> keptDispositions;
bool dispositionsAreKept = false;

// Global, because a signal handler can access nothing else.
constexpr int noPipe = -1;
constinit std::atomic<int> watchingPipe{noPipe};
constinit std::atomic<int> handlersRunning{0};
static_assert(std::atomic<int>::is_always_lock_free);

/// A handler that begins after the watch has stopped finds no pipe and ends the process itself.
void writeSignalToPipe(int number) {
  const int error = errno;
  ++handlersRunning;
  const int pipe = watchingPipe;
  if (pipe == noPipe) endBySignal(number);
  const char byte = static_cast<char>(number);
  while (::write(pipe, &byte, 1) == -1 && errno == EINTR) {
  }
  --handlersRunning;
  errno = error;
}

bool endsTheProcess(int number) {
  struct sigaction current = {};
  ::sigaction(number, nullptr, &current);
  return (current.sa_flags & SA_SIGINFO) == 0 && current.sa_handler == SIG_DFL;
}

}  // namespace

const sigset_t& startSignalMask() {
  static const sigset_t mask = [] {
    sigset_t current;
    ::pthread_sigmask(SIG_SETMASK, nullptr, &current);
    return current;
  }();
  return mask;
}

void keepSignalDispositions() {
  for (int number = 1; number < NSIG; ++number) {
    ::sigaction(number, nullptr, &keptDispositions[static_cast<std::size_t>(number)]);
  }
  dispositionsAreKept = true;
}

void restoreSignalDispositions() {
  if (!dispositionsAreKept) return;
  for (int number = 1; number < NSIG; ++number) {
    ::sigaction(number, &keptDispositions[static_cast<std::size_t>(number)], nullptr);
  }
}

SignalOverride::SignalOverride(int number, void (*disposition)(int), int flags) : number_(number) {
  struct sigaction temporary = {};
  temporary.sa_handler = disposition;
  temporary.sa_flags = flags;
  ::sigaction(number_, &temporary, &previous_);
}

TerminationWatch::TerminationWatch(Pipe pipe) : pipe_(std::move(pipe)) {
  watchingPipe = pipe_.writeEnd.get();
  for (std::size_t i = 0; i < overrides_.size(); ++i) {
    const int number = terminationSignals[i];
    // With SA_RESTART the calls of other threads are not interrupted, which a toolkit does not
    // expect.
    if (endsTheProcess(number)) overrides_[i].emplace(number, writeSignalToPipe, SA_RESTART);
  }
}

TerminationWatch::~TerminationWatch() {
  for (auto& override : overrides_) override.reset();
  watchingPipe = noPipe;
  // A handler on another thread may still be about to write.
  while (handlersRunning != 0) std::this_thread::yield();
  pipe_.writeEnd.reset();
  char number = 0;
  if (::read(descriptor(), &number, 1) == 1) endBySignal(number);
}

void endBySignal(int number) {
  struct sigaction byDefault = {};
  byDefault.sa_handler = SIG_DFL;
  ::sigaction(number, &byDefault, nullptr);
  sigset_t self;
  sigemptyset(&self);  // On a Mac these are macros.
  sigaddset(&self, number);
  (void)::raise(number);
  ::pthread_sigmask(SIG_UNBLOCK, &self, nullptr);
  // Reached only by the first process of a container, which such a signal does not end.
  constexpr int signalBase = 128;
  ::_exit(signalBase + number);
}

}  // namespace quillon::platform
