#include "discovery/discover_and_resolve.h"

#include <utility>

namespace quillon {
namespace {

/// The result of an attempt, and its endpoint.
struct MadeAttempt {
  DiscoverResult result;
  Endpoint endpoint;
};

std::string contactingText(const Endpoint& endpoint, const std::string& proxyServer) {
  const char* route = proxyServer.empty() ? "directly" : "via SOCKS5";
  return "contacting " + endpoint.host + " " + route + "…";
}

MadeAttempt lastAttempt(const OverlayKeys& overlay, const DiscoveryObserver& observer,
                        const EgressAttempt& attempt) {
  Endpoint primary = primaryEndpoint();
  observer(contactingText(primary, overlay.proxyServer));
  DiscoverResult first = attempt(overlay.proxyServer, primary.url);
  if (first.errorCode.empty() || wantsMoreThanAddress(overlay)) {
    return {std::move(first), std::move(primary)};
  }
  Endpoint fallback = fallbackEndpoint();
  observer("primary failed — trying " + fallback.host + "…");
  DiscoverResult second = attempt(overlay.proxyServer, fallback.url);
  second.elapsedMs += first.elapsedMs;
  return {std::move(second), std::move(fallback)};
}

}  // namespace

DiscoveryOutcome discoverAndResolve(const OverlayKeys& overlay, const DiscoveryObserver& observer,
                                    const EgressAttempt& attempt) {
  auto [result, endpoint] = lastAttempt(overlay, observer, attempt);
  DiscoveryOutcome outcome;
  outcome.discovery = {result.ip, result.countryCode, endpoint.provider, result.timezone,
                       result.elapsedMs};
  if (result.errorCode.empty()) outcome.persona = resolvePersona(overlay, result);
  outcome.result = std::move(result);
  outcome.endpoint = std::move(endpoint);
  return outcome;
}

}  // namespace quillon
