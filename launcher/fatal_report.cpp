#include "launcher/fatal_report.h"

#include "launcher/exit_status.h"
#include "platform/process/process.h"
#include "platform/ui/application.h"

namespace quillon {

std::string fatalMessage(const SpawnError& error) {
  if (error.kind == SpawnError::Case::engineMissing) {
    return "Engine binary not found:\n" + error.engine.text();
  }
  return "Engine spawn failed: " + error.description();
}

platform::ui::Alert fatalAlert(const std::string& message) {
  return {.messageText = "Nimbra couldn't launch",
          .informativeText = message + "\n\nReinstall Nimbra to fix this.",
          .buttonTitle = "OK"};
}

void reportFatalLaunchFailure(const std::string& message) {
  namespace ui = platform::ui;
  platform::writeToStandardError("[quillon-launcher] " + message + "\n");
  ui::Application& application = ui::Application::shared();
  application.setActivationPolicy(ui::ActivationPolicy::accessory);
  application.runModal(fatalAlert(message));
  exitProcess(ExitStatus::fatalFailure);
}

}  // namespace quillon
