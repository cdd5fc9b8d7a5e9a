#include "platform/process/signal_dispositions.h"

#include <array>

namespace quillon::platform {
namespace {

/// SIGKILL and SIGSTOP are among them: asking is harmless, and putting back fails unnoticed.
std::array<struct sigaction, NSIG> keptDispositions;
bool dispositionsAreKept = false;

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

}  // namespace quillon::platform
