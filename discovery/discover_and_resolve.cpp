#include "discovery/discover_and_resolve.h"

#include <utility>

#include "discovery/endpoints.h"
#include "launcher/launcher_delegate.h"
#include "launcher/process_values.h"
#include "reports/launch_error.h"

namespace quillon {
namespace {

constexpr std::size_t discoveryStep = 1;

/// An attempt that was made last, and where.
struct Attempt {
  Endpoint endpoint;
  DiscoverResult result;
};

void showProgress(LauncherDelegate& delegate, std::string status) {
  delegate.updateStep(discoveryStep,
                      [status = std::move(status)](SplashStep& step) { step.status = status; });
}

void showOutcome(LauncherDelegate& delegate, std::string status, bool failed) {
  delegate.updateStep(discoveryStep, [status = std::move(status), failed](SplashStep& step) {
    step.status = status;
    step.done = true;
    step.failed = failed;
  });
}

Attempt attemptFallback(LauncherDelegate& delegate, std::int64_t elapsedMs) {
  const Endpoint endpoint = fallbackEndpoint();
  showProgress(delegate, "primary failed — trying " + endpoint.host + "…");
  DiscoverResult result = discoverEgress(delegate.overlay.proxyServer, endpoint.url);
  result.elapsedMs += elapsedMs;
  return {endpoint, std::move(result)};
}

Attempt attempt(LauncherDelegate& delegate) {
  const OverlayKeys& overlay = delegate.overlay;
  const char* route = overlay.proxyServer.empty() ? "directly" : "via SOCKS5";
  const Endpoint endpoint = primaryEndpoint();
  showProgress(delegate, "contacting " + endpoint.host + " " + route + "…");
  DiscoverResult result = discoverEgress(overlay.proxyServer, endpoint.url);
  if (!result.errorCode.empty() && !wantsMoreThanAddress(overlay)) {
    return attemptFallback(delegate, result.elapsedMs);
  }
  return {endpoint, std::move(result)};
}

LaunchErrorRecord errorRecord(const Attempt& last, const std::string& proxyServer) {
  const DiscoverResult& result = last.result;
  LaunchErrorRecord record;
  record.step = "discover_proxy_ip";
  record.errorCode = result.errorCode;
  record.message = result.message;
  record.proxy = proxyServer;
  record.discoveryUrl = last.endpoint.url;
  if (result.curlExitCode >= 0) record.curlExitCode = result.curlExitCode;
  record.elapsedMs = result.elapsedMs;
  record.launcherVersion = launcherVersion;
  return record;
}

void giveUp(LauncherDelegate& delegate, const Attempt& last) {
  writeErrorFile(delegate.userDataDir, errorRecord(last, delegate.overlay.proxyServer));
  delegate.blockEngine = delegate.overlay.onProxyFail == "block";
  const std::string& code = last.result.errorCode;
  showOutcome(
      delegate,
      delegate.blockEngine ? "BLOCKED: " + code : "WARN: " + code + " — chrome will fall back",
      true);
}

}  // namespace

void discoverAndResolve(LauncherDelegate& delegate) {
  const Attempt last = attempt(delegate);
  const DiscoverResult& result = last.result;
  delegate.discovery = {result.ip, result.countryCode, last.endpoint.provider, result.timezone,
                        result.elapsedMs};
  if (!result.errorCode.empty()) {
    giveUp(delegate, last);
    return;
  }
  showOutcome(delegate, result.ip, false);
  delegate.persona = resolvePersona(delegate.overlay, result);
}

}  // namespace quillon
