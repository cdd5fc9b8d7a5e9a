#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>

#include "discovery/discover_and_resolve.h"
#include "launcher/launch_request.h"
#include "splash/splash_window.h"

/// The steps of a windowed launch and the pauses between them.
namespace quillon {

/// The window, as the sequence uses it. Both functions are called on the thread of the sequence.
struct SequenceWindow {
  /// Changes one step of the window. The change can run later, in the order of the calls.
  std::function<void(std::size_t index, std::function<void(SplashStep&)> change)> updateStep;
  /// Blocks, so that the user can read the window. Returns whether the window is still open.
  std::function<bool(std::chrono::milliseconds duration)> pause;
};

/// Takes the steps of a windowed launch up to the plan. Removes an old error file and, if the
/// discovery fails, writes a new one. `attempt` makes one attempt of the discovery. Blocks in the
/// pauses and attempts. Returns nothing if the window was closed.
[[nodiscard]] std::optional<DiscoveryOutcome> takeLaunchSteps(const LaunchRequest& request,
                                                              const SequenceWindow& window,
                                                              const EgressAttempt& attempt);

}  // namespace quillon
