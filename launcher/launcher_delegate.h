#pragma once

#include <atomic>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "discovery/persona.h"
#include "overlay/overlay_keys.h"
#include "platform/files/files.h"
#include "platform/ui/application.h"
#include "splash/splash_window.h"

namespace quillon {

/// Runs a change on the main thread: at once when called there, else posted, in order, without
/// waiting. Any thread.
void onMainThread(std::function<void()> change);

/// Drives a launch with a window and holds its state. Made on the main thread by the entry point,
/// which keeps it as long as the process lives. The background thread writes `persona`,
/// `blockEngine` and `discovery` before it posts `finishLaunch`; the main thread reads them there.
class LauncherDelegate final : public platform::ui::ApplicationDelegate,
                               public platform::ui::WindowDelegate,
                               public std::enable_shared_from_this<LauncherDelegate> {
 public:
  LauncherDelegate(OverlayKeys overlayKeys, platform::Path engine,
                   std::vector<std::string> arguments, std::optional<std::string> profile);

  const OverlayKeys overlay;
  const platform::Path engineBinary;
  const std::vector<std::string> originalArgs;
  const std::optional<std::string> userDataDir;
  /// Absent until the application has finished launching.
  std::optional<SplashWindow> splash;
  ResolvedPersona persona;
  /// Discovery failed and the overlay wants no engine then.
  bool blockEngine = false;
  /// The user closed the splash window.
  std::atomic<bool> cancelled = false;
  DiscoveryCapture discovery;

  /// Shows the splash window and starts the launch sequence in the background. Main thread, once.
  void applicationDidFinishLaunching() override;

  /// Ends the process at once with status 0: no report, no engine. Main thread.
  void windowWillClose() override;

  /// The steps of a launch, from the overlay to the hand-over to `finishLaunch`. Once, on the
  /// background thread; blocks in its pauses and while curl runs.
  void runLaunchSequence();

  /// Hides the window, writes the result file, starts the engine unless it is blocked, and ends the
  /// process: status 0, 42 when blocked, 1 when the engine cannot be started. Main thread, once.
  [[noreturn]] void finishLaunch();

  /// Changes one step of the splash window by way of `onMainThread`. Any thread.
  void updateStep(std::size_t index, std::function<void(SplashStep&)> change);
};

/// What step 3 of the window says about the derived values; "none (passthrough)" without any. Pure.
[[nodiscard]] std::string appliedOverridesText(const ResolvedPersona& persona);

}  // namespace quillon
