#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "launcher/launch_sequence.h"
#include "launcher/process_values.h"
#include "platform/ui/application.h"
#include "splash/splash_window.h"

namespace quillon {

/// Runs a change on the main thread: at once when called there, else posted, in order, without
/// waiting. Any thread.
void onMainThread(std::function<void()> change);

/// Drives a launch with a window and holds its state. Made on the main thread by the entry point,
/// which keeps it as long as the process lives. The background thread hands the outcome over with
/// the post of `finishLaunch`.
class LauncherDelegate final : public platform::ui::ApplicationDelegate,
                               public platform::ui::WindowDelegate,
                               public SequenceStage,
                               public std::enable_shared_from_this<LauncherDelegate> {
 public:
  explicit LauncherDelegate(ProcessValues processValues);

  const ProcessValues values;
  /// Absent until the application has finished launching.
  std::optional<SplashWindow> splash;
  /// The user closed the splash window.
  std::atomic<bool> cancelled = false;

  /// Shows the splash window and starts the launch sequence in the background. Main thread, once.
  void applicationDidFinishLaunching() override;

  /// Ends the process at once with status 0: no report, no engine. Main thread.
  void windowWillClose() override;

  /// Plays the launch sequence, then has the main thread finish the launch, or end the process with
  /// status 0 when it was cancelled. Once, on the background thread.
  void runLaunchSequence();

  /// Hides the window and carries out what follows from the outcome. Main thread, once.
  [[noreturn]] void finishLaunch(const DiscoveryOutcome& outcome);

  /// Any thread, by way of `onMainThread`.
  void updateStep(std::size_t index, std::function<void(SplashStep&)> change) override;
  void pause(std::chrono::milliseconds duration) override;
  [[nodiscard]] bool isCancelled() const override { return cancelled; }
  DiscoverResult attempt(const std::string& proxyServer, const std::string& endpointURL) override;
};

}  // namespace quillon
