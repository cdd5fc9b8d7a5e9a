#include "platform/system/system.h"

#include <unistd.h>

#include <csignal>

#include "platform/system/child_leash.h"

namespace quillon::platform {

Path perUserFolder() {
  return homeFolder() / "Library/Application Support/Quillon";
}

void writeToStandardError(std::string_view text) {
  (void)std::signal(SIGPIPE, SIG_IGN);
  (void)std::signal(SIGXFSZ, SIG_IGN);
  if (::write(STDERR_FILENO, text.data(), text.size()) < 0) return;
}

void endProcess(int status) {
  while (!killLeashedChild()) ::pause();
  ::_exit(status);
}

}  // namespace quillon::platform
