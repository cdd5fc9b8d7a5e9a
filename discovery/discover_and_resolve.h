#pragma once

#include <functional>
#include <string>

#include "discovery/egress_discovery.h"
#include "discovery/endpoints.h"
#include "discovery/persona.h"
#include "overlay/overlay_keys.h"

namespace quillon {

/// The outcome of a discovery.
struct DiscoveryOutcome {
  /// The result of the last attempt, with the time of all attempts.
  DiscoverResult result;
  /// The endpoint of the last attempt.
  Endpoint endpoint;
  /// The facts for the result file, also after a failure.
  DiscoveryCapture discovery;
  /// Empty after a failure.
  ResolvedPersona persona;

  [[nodiscard]] bool failed() const { return !result.errorCode.empty(); }
};

/// Receives a short text for the user about what the discovery does now. Called on the discovery's
/// thread.
using DiscoveryObserver = std::function<void(std::string status)>;

/// Makes one attempt through a proxy at an endpoint: `discoverEgress`, or a substitute of a test.
using EgressAttempt =
    std::function<DiscoverResult(const std::string& proxyServer, const std::string& endpointURL)>;

/// Discovers the egress address of the overlay's proxy and derives the persona's values from it.
/// Makes one attempt at the primary endpoint. If it fails and only the address is needed, makes a
/// second one at the fallback endpoint. Blocks during the attempts. Every failure is an outcome.
/// Any thread.
[[nodiscard]] DiscoveryOutcome discoverAndResolve(const OverlayKeys& overlay,
                                                  const DiscoveryObserver& observer,
                                                  const EgressAttempt& attempt);

}  // namespace quillon
