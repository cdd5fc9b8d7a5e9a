#include "launcher/launch_sequence.h"

#include <utility>

#include "launcher/launch_plan.h"
#include "launcher/step_texts.h"
#include "launcher_version.h"
#include "reports/launch_error.h"

namespace quillon {
namespace {

using namespace std::chrono_literals;

constexpr std::size_t overlayStep = 0;
constexpr std::size_t discoveryStep = 1;
constexpr std::size_t overridesStep = 2;
constexpr std::size_t engineStep = 3;

/// Time on screen: the user can follow the steps, and read why a launch is blocked.
constexpr auto pauseAfterOverlay = 120ms;
constexpr auto pauseAfterDiscovery = 180ms;
constexpr auto pauseWhenBlocked = 2500ms;
constexpr auto pauseAfterOverrides = 120ms;
constexpr auto pauseBeforeEngine = 80ms;

void showStatus(const SequenceWindow& window, std::size_t index, std::string status) {
  window.updateStep(index,
                    [status = std::move(status)](SplashStep& step) { step.status = status; });
}

void showOutcome(const SequenceWindow& window, std::size_t index, std::string status, bool failed) {
  window.updateStep(index, [status = std::move(status), failed](SplashStep& step) {
    step.status = status;
    step.done = true;
    step.failed = failed;
  });
}

LaunchErrorRecord errorRecord(const DiscoveryOutcome& outcome, const std::string& proxyServer) {
  const DiscoverResult& result = outcome.result;
  LaunchErrorRecord record;
  record.step = "discover_proxy_ip";
  record.errorCode = result.errorCode;
  record.message = result.message;
  record.proxy = proxyServer;
  record.discoveryUrl = outcome.endpoint.url;
  if (result.curlExitCode >= 0) record.curlExitCode = result.curlExitCode;
  record.elapsedMs = result.elapsedMs;
  record.launcherVersion = launcherVersion;
  return record;
}

DiscoveryOutcome discover(const LaunchRequest& request, const SequenceWindow& window,
                          const EgressAttempt& attempt) {
  const OverlayKeys& overlay = request.overlay;
  DiscoveryOutcome outcome = discoverAndResolve(
      overlay, [&](std::string status) { showStatus(window, discoveryStep, std::move(status)); },
      attempt);
  if (outcome.failed()) {
    writeErrorFile(request.userDataDir, errorRecord(outcome, overlay.proxyServer));
  }
  showOutcome(window, discoveryStep, discoveryText(outcome, blocksEngine(overlay, outcome)),
              outcome.failed());
  return outcome;
}

}  // namespace

std::optional<DiscoveryOutcome> takeLaunchSteps(const LaunchRequest& request,
                                                const SequenceWindow& window,
                                                const EgressAttempt& attempt) {
  removeErrorFile(request.userDataDir);
  showOutcome(window, overlayStep, request.overlay.proxyServer, false);
  if (!window.pause(pauseAfterOverlay)) return std::nullopt;
  DiscoveryOutcome outcome = discover(request, window, attempt);
  const bool blocked = blocksEngine(request.overlay, outcome);
  if (!window.pause(blocked ? pauseWhenBlocked : pauseAfterDiscovery)) return std::nullopt;
  showOutcome(window, overridesStep, overridesText(outcome.persona, blocked), blocked);
  window.pause(pauseAfterOverrides);
  showOutcome(window, engineStep, engineText(blocked), blocked);
  window.pause(pauseBeforeEngine);
  return outcome;
}

}  // namespace quillon
