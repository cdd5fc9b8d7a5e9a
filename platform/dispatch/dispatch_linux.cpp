#include <unistd.h>

#include <system_error>
#include <thread>

#include "platform/dispatch/dispatch.h"

namespace quillon::platform {

bool isMainThread() {
  return ::gettid() == ::getpid();
}

void runInBackground(Task task) {
  try {
    std::thread(task).detach();
  } catch (const std::system_error&) {
    postToMain(std::move(task));
  }
}

}  // namespace quillon::platform
