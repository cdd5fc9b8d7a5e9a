#pragma once

#include <optional>
#include <string>

#include "discovery/discover_and_resolve.h"
#include "engine/engine_arguments.h"
#include "launcher/exit_status.h"
#include "launcher/launch_request.h"
#include "profile/profile_items.h"
#include "reports/launch_result.h"

/// What a launch will do, before it does any of it. Pure; any thread.
namespace quillon {

/// One launch, decided.
struct LaunchPlan {
  std::optional<std::string> userDataDir;
  /// Removed from the profile folder.
  ProfileItems removals;
  /// Empty if no engine is started.
  EngineArguments engineArguments;
  /// The result file but for its time stamp.
  LaunchResultRecord result;
  /// The launcher's, unless the engine cannot be started.
  ExitStatus exitStatus = ExitStatus::success;
};

/// A launch that needs no discovery.
[[nodiscard]] LaunchPlan planPassthrough(const LaunchRequest& request, const LaunchFacts& facts);

/// A launch after its discovery, be it one that failed, with the engine to be started.
[[nodiscard]] LaunchPlan planWindowed(const LaunchRequest& request, const LaunchFacts& facts,
                                      const DiscoveryOutcome& outcome);

/// A launch that ends after its discovery: nothing is removed and no engine started.
[[nodiscard]] LaunchPlan planBlocked(const LaunchRequest& request, const DiscoveryOutcome& outcome);

/// Whether the overlay's policy keeps the engine from starting after this discovery.
[[nodiscard]] bool blocksEngine(const OverlayKeys& overlay, const DiscoveryOutcome& outcome);

}  // namespace quillon
