#pragma once

#include <atomic>
#include <functional>
#include <optional>

#include "launcher/launch_sequence.h"
#include "launcher/process_values.h"
#include "platform/ui/application.h"
#include "splash/splash_window.h"

namespace quillon {

/// Runs a change on the main thread: immediately if called there, otherwise posted, in order,
/// without waiting. Any thread.
void onMainThread(std::function<void()> change);

/// Controls a windowed launch and holds its state. The entry point creates it on the main thread
/// and never destroys it, because the background thread uses it until the process ends.
class LauncherDelegate final : public platform::ui::ApplicationDelegate,
                               public platform::ui::WindowDelegate {
 public:
  explicit LauncherDelegate(ProcessValues processValues);

  const ProcessValues values;
  /// Absent until the application has finished launching.
  std::optional<SplashWindow> splash;
  /// The user closed the splash window.
  std::atomic<bool> cancelled = false;

  /// Shows the splash window and starts the launch sequence in the background. Main thread, once.
  void applicationDidFinishLaunching() override;

  /// Ends the process immediately with status 0, without a report and without an engine. Main
  /// thread.
  void windowWillClose() override;

  /// Takes the steps of the launch, then posts `finishLaunch` with the outcome to the main thread.
  /// If the window was closed, the process ends there with status 0. Background thread, once.
  void runLaunchSequence();

  /// Hides the window, then plans and executes the launch. Main thread, once.
  [[noreturn]] void finishLaunch(const DiscoveryOutcome& outcome);

 private:
  SequenceWindow sequenceWindow();
};

}  // namespace quillon
