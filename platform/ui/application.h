#pragma once

#include "platform/ui/backend.h"

namespace quillon::platform::ui {

class ApplicationDelegate {
 public:
  /// The event loop is running and has not done anything else yet.
  virtual void applicationDidFinishLaunching() = 0;

 protected:
  ~ApplicationDelegate() = default;
};

/// This process as a desktop application. Main thread only.
class Application {
 public:
  /// The only instance, created on first use. If there is a display and a module of this build,
  /// this loads the toolkit. If the display or the module is missing, the application is headless.
  static Application& shared();

  explicit Application(const Backend& backend) : backend_(backend) {}
  Application(const Application&) = delete;
  Application& operator=(const Application&) = delete;
  ~Application() = default;

  /// Not owned. It must live as long as the application.
  void setDelegate(ApplicationDelegate& delegate) { delegate_ = &delegate; }
  void setActivationPolicy(ActivationPolicy policy) const { backend_.setActivationPolicy(policy); }
  /// Brings the application in front of all others.
  void activateIgnoringOtherApps() const { backend_.activate(); }
  /// Notifies the delegate that the launch has finished, then handles events.
  void run();
  /// Shows the alert in front of all applications and blocks until the user dismisses it. Returns
  /// at once if headless. After this call the process ends with status 1 if its screen is lost or
  /// it is asked to quit. Before this call it then ends with 0, as if the user had closed its
  /// window.
  void runModal(const Alert& alert) const;

  [[nodiscard]] const Backend& backend() const { return backend_; }

 private:
  const Backend& backend_;
  ApplicationDelegate* delegate_ = nullptr;
};

}  // namespace quillon::platform::ui
