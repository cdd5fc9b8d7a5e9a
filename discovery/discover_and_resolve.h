#pragma once

#include <functional>
#include <string>

#include "discovery/egress_discovery.h"
#include "discovery/endpoints.h"
#include "discovery/persona.h"
#include "overlay/overlay_keys.h"

namespace quillon {

/// What a discovery came to.
struct DiscoveryOutcome {
  /// The attempt that counts, which is the last one, with the time of all attempts.
  DiscoverResult result;
  /// Where it was made.
  Endpoint endpoint;
  /// The facts for the result file, after a failure too.
  DiscoveryCapture discovery;
  /// Empty after a failure.
  ResolvedPersona persona;

  [[nodiscard]] bool failed() const { return !result.errorCode.empty(); }
};

/// Told in a few words, for the user, what the discovery is doing now; on the thread it runs on.
using DiscoveryObserver = std::function<void(std::string status)>;

/// Makes one attempt through a proxy against an endpoint: `discoverEgress`, or what stands in.
using EgressAttempt =
    std::function<DiscoverResult(const std::string& proxyServer, const std::string& endpointURL)>;

/// Finds out where the overlay's proxy exits and what follows for the persona: one attempt at the
/// primary endpoint and, when that fails and only the address is wanted, one at the fallback
/// endpoint. Blocks while they run. Every failure is an outcome. Any thread.
[[nodiscard]] DiscoveryOutcome discoverAndResolve(const OverlayKeys& overlay,
                                                  const DiscoveryObserver& observer,
                                                  const EgressAttempt& attempt);

}  // namespace quillon
