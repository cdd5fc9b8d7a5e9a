#include <unistd.h>

#include "platform/core/descriptor.h"
#include "platform/probe/standard_output.h"

namespace quillon::platform {

bool standardOutputIsTerminal() {
  return ::isatty(STDOUT_FILENO) == 1;
}

bool writeToStandardOutput(std::string_view text) {
  while (!text.empty()) {
    const ssize_t written =
        retryInterrupted([&] { return ::write(STDOUT_FILENO, text.data(), text.size()); });
    if (written < 0) return false;
    text.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

}  // namespace quillon::platform
