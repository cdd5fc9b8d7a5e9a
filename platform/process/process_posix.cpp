#include "platform/process/process.h"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>

#include "platform/core/descriptor.h"

namespace quillon::platform {
namespace {

struct ProcessEnd {
  std::shared_mutex mutex;
  pid_t child = 0;  // written by one thread at a time, with the mutex shared; read when it is not
};

ProcessEnd& processEnd() {
  // Never destroyed: `endProcess` keeps it locked.
  static ProcessEnd& end = *new ProcessEnd;
  return end;
}

}  // namespace

void occupyClosedStandardStreams() {
  // The system returns the lowest free number: that of a closed stream, until all three are open.
  UniqueFd placeholder;
  do {
    (void)placeholder.release();
    placeholder = UniqueFd(::open("/dev/null", O_RDWR | O_CLOEXEC));
  } while (placeholder.isOpen() && placeholder.get() <= STDERR_FILENO);
}

void writeToStandardError(std::string_view text) {
  (void)std::signal(SIGPIPE, SIG_IGN);
  (void)std::signal(SIGXFSZ, SIG_IGN);
  if (::write(STDERR_FILENO, text.data(), text.size()) < 0) return;
}

std::shared_lock<std::shared_mutex> delayProcessEnd() {
  return std::shared_lock(processEnd().mutex);
}

void setChildToKill(pid_t child) {
  processEnd().child = child;
}

void endProcess(int status) {
  ProcessEnd& end = processEnd();
  end.mutex.lock();
  if (end.child != 0) ::kill(end.child, SIGKILL);
  ::_exit(status);
}

}  // namespace quillon::platform
