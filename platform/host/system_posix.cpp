#include "platform/host/system.h"

#include <unistd.h>

#include <csignal>

#include "platform/process/child_leash.h"

namespace quillon::platform {
namespace {

std::shared_mutex& processEnd() {
  // Never destroyed: whoever ends the process keeps it.
  static std::shared_mutex& mutex = *new std::shared_mutex;
  return mutex;
}

}  // namespace

Path perUserFolder() {
  return homeFolder() / "Library/Application Support/Quillon";
}

void writeToStandardError(std::string_view text) {
  (void)std::signal(SIGPIPE, SIG_IGN);
  (void)std::signal(SIGXFSZ, SIG_IGN);
  if (::write(STDERR_FILENO, text.data(), text.size()) < 0) return;
}

std::shared_lock<std::shared_mutex> delayProcessEnd() {
  return std::shared_lock(processEnd());
}

void endProcess(int status) {
  processEnd().lock();
  while (!killLeashedChild()) ::pause();
  ::_exit(status);
}

}  // namespace quillon::platform
