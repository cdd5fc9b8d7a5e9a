#include "platform/ui/application.h"

#include <cstdlib>

#include "platform/dispatch/dispatch.h"
#include "platform/process/process.h"
#include "platform/process/signals.h"
#include "platform/ui/display.h"
#include "platform/ui/module.h"

namespace quillon::platform::ui {
namespace {

/// Global, because the screen may be lost while the application is being constructed.
constinit bool hasFailed = false;

/// Ends the process when the screen is lost or the application is asked to quit. Before a failure
/// this has the effect of closing the window, shown or not: status 0. After a failure it has the
/// effect of closing the alert: status 1.
void quit() {
  endProcess(hasFailed ? EXIT_FAILURE : EXIT_SUCCESS);
}

const Backend& chooseBackend() {
  if (!mayHaveDisplay()) return headlessBackend();
  keepSignalDispositions();
  const Backend* module = loadBackendModule();
  const ApplicationCalls calls{.runPostedTasks = platform::runPostedTasks, .quit = quit};
  if (module == nullptr || !module->connect(calls)) return headlessBackend();
  setWakeUp(module->wake);
  return *module;
}

}  // namespace

Application& Application::shared() {
  // Never destroyed: the process ends without running destructors.
  static Application& application = *new Application(chooseBackend());
  return application;
}

void Application::run() {
  postToMain([this] {
    if (delegate_ != nullptr) delegate_->applicationDidFinishLaunching();
  });
  backend_.run();
}

void Application::runModal(const Alert& alert) const {
  hasFailed = true;
  backend_.runModal(alert);
}

void Window::makeKeyAndOrderFront() {
  Application::shared().backend().showWindow(*this);
}

void Window::display() const {
  Application::shared().backend().updateWindow(*this);
}

void Window::orderOut() const {
  Application::shared().backend().hideWindow(*this);
}

}  // namespace quillon::platform::ui
