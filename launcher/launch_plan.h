#pragma once

#include <optional>
#include <string>

#include "discovery/discover_and_resolve.h"
#include "engine/engine_arguments.h"
#include "launcher/exit_status.h"
#include "launcher/launch_request.h"
#include "profile/profile_items.h"
#include "reports/launch_result.h"

/// What a launch will do. Pure; any thread.
namespace quillon {

/// One launch, with everything decided.
struct LaunchPlan {
  std::optional<std::string> userDataDir;
  /// Removed from the profile folder.
  ProfileItems removals;
  /// Empty if no engine is started.
  EngineArguments engineArguments;
  /// The content of the result file, except its time stamp.
  LaunchResultRecord result;
  /// The launcher's exit status, unless the engine cannot be started.
  ExitStatus exitStatus = ExitStatus::success;
};

/// A launch that needs no discovery.
[[nodiscard]] LaunchPlan planPassthrough(const LaunchRequest& request, const LaunchFacts& facts);

/// A launch that starts the engine after its discovery, whether that succeeded or failed.
[[nodiscard]] LaunchPlan planWindowed(const LaunchRequest& request, const LaunchFacts& facts,
                                      const DiscoveryOutcome& outcome);

/// A launch that ends after its discovery: it removes nothing and does not start the engine.
[[nodiscard]] LaunchPlan planBlocked(const LaunchRequest& request, const DiscoveryOutcome& outcome);

/// Whether the overlay's policy prevents the start of the engine after this discovery.
[[nodiscard]] bool blocksEngine(const OverlayKeys& overlay, const DiscoveryOutcome& outcome);

}  // namespace quillon
