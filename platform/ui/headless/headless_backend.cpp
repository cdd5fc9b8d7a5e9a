#include "platform/dispatch/dispatch.h"
#include "platform/ui/backend.h"

namespace quillon::platform::ui {
namespace {

[[noreturn]] void runLoop() {
  for (;;) {
    waitForPostedTasks();
    runPostedTasks();
  }
}

constexpr Backend backend{
    .connect = [](const ApplicationCalls&) { return true; },
    .setActivationPolicy = [](ActivationPolicy) {},
    .run = runLoop,
    .wake = [] {},  // The loop waits for the queue itself.
    .showWindow = [](Window&) {},
    .updateWindow = [](const Window&) {},
    .hideWindow = [](const Window&) {},
    .activate = [] {},
    .runModal = [](const Alert&) {},
};

}  // namespace

const Backend& headlessBackend() {
  return backend;
}

}  // namespace quillon::platform::ui
