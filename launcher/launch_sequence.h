#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>

#include "discovery/discover_and_resolve.h"
#include "launcher/launch_request.h"
#include "splash/splash_window.h"

/// The steps of a launch with a window, as the user sees them pass.
namespace quillon {

/// What the sequence does to the world, and what it learns from it.
class SequenceStage {
 public:
  /// Changes one step of the splash window. The change may run later, in order with the others.
  virtual void updateStep(std::size_t index, std::function<void(SplashStep&)> change) = 0;
  /// Gives the user time to see how far the launch is.
  virtual void pause(std::chrono::milliseconds duration) = 0;
  /// Whether the user has closed the window.
  [[nodiscard]] virtual bool isCancelled() const = 0;
  /// One attempt at a discovery; blocks.
  virtual DiscoverResult attempt(const std::string& proxyServer,
                                 const std::string& endpointURL) = 0;

 protected:
  ~SequenceStage() = default;
};

/// Runs the sequence: ticks the steps off one by one, removes a stale error file and, after a
/// failed discovery, writes one. Blocks in the pauses and attempts. Nothing when it was cancelled.
[[nodiscard]] std::optional<DiscoveryOutcome> playLaunchSequence(const LaunchRequest& request,
                                                                 SequenceStage& stage);

}  // namespace quillon
