#pragma once

#include "platform/ui/backend.h"

namespace quillon::platform::ui {

class ApplicationDelegate {
 public:
  /// The event loop is running and has nothing else to do yet.
  virtual void applicationDidFinishLaunching() = 0;

 protected:
  ~ApplicationDelegate() = default;
};

/// The process as an application of a desktop. Main thread only.
class Application {
 public:
  /// The one application, made on first use: that is when a toolkit is loaded, if there is a
  /// display and a module of this build. Without either it runs headless.
  static Application& shared();

  explicit Application(const Backend& backend) : backend_(backend) {}
  Application(const Application&) = delete;
  Application& operator=(const Application&) = delete;
  ~Application() = default;

  /// Not owned; must live as long as the application.
  void setDelegate(ApplicationDelegate& delegate) { delegate_ = &delegate; }
  void setActivationPolicy(ActivationPolicy policy) const { backend_.setActivationPolicy(policy); }
  /// Brings the application in front of all others.
  void activateIgnoringOtherApps() const { backend_.activate(); }
  /// Tells the delegate that the launch has finished, then handles events.
  void run();
  /// Shows the alert in front of all applications and blocks until the user has dismissed it; at
  /// once when headless. From now on the process ends with status 1 when its screen is lost or it
  /// is to quit; before, with 0, as when the user closes its window.
  void runModal(const Alert& alert) const;

  [[nodiscard]] const Backend& backend() const { return backend_; }

 private:
  const Backend& backend_;
  ApplicationDelegate* delegate_ = nullptr;
};

}  // namespace quillon::platform::ui
