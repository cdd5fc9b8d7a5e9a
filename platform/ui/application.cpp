#include "platform/ui/application.h"

#include "platform/dispatch/dispatch.h"
#include "platform/system/signal_dispositions.h"
#include "platform/ui/display.h"
#include "platform/ui/module.h"

namespace quillon::platform::ui {
namespace {

const Backend& chooseBackend() {
  if (!mayHaveDisplay()) return headlessBackend();
  keepSignalDispositions();
  const Backend* module = loadBackendModule();
  if (module == nullptr || !module->connect(&runPostedTasks)) return headlessBackend();
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
