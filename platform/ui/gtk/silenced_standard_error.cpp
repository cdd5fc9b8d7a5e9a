#include "platform/ui/gtk/silenced_standard_error.h"

#include <fcntl.h>
#include <unistd.h>

namespace quillon::platform::ui {

SilencedStandardError::SilencedStandardError()
    : former_(::fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1)),
      formerFlags_(::fcntl(STDERR_FILENO, F_GETFD)) {
  if (former_ < 0) return;
  const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
  if (nowhere < 0) return;
  ::dup3(nowhere, STDERR_FILENO, O_CLOEXEC);
  ::close(nowhere);
}

SilencedStandardError::~SilencedStandardError() {
  if (former_ < 0) return;
  const bool closesOnExec = (formerFlags_ & FD_CLOEXEC) != 0;
  ::dup3(former_, STDERR_FILENO, closesOnExec ? O_CLOEXEC : 0);
  ::close(former_);
}

}  // namespace quillon::platform::ui
