#include "platform/ui/application.h"

#include <cstdlib>

#include "platform/dispatch/dispatch.h"
#include "platform/process/process.h"
#include "platform/process/signals.h"
#include "platform/ui/display.h"
#include "platform/ui/module.h"

namespace quillon::platform::ui {
namespace {

/// Global, as the screen may be lost even while the application is being made.
constinit bool hasFailed = false;

/// Who cuts the connection to the screen, or has the application quit, has closed its window, be it
/// shown yet or not, or the alert of a process that has failed.
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
  // Never destroyed: the process ends without tearing anything down.
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
