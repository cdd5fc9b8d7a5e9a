#include "launcher/launch_sequence.h"

#include <utility>

#include "launcher/launch_plan.h"
#include "launcher/step_texts.h"
#include "reports/launch_error.h"

namespace quillon {
namespace {

using namespace std::chrono_literals;

constexpr std::size_t overlayStep = 0;
constexpr std::size_t discoveryStep = 1;
constexpr std::size_t overridesStep = 2;
constexpr std::size_t engineStep = 3;

/// Long enough for the eye to follow the steps, and to read why a launch is blocked.
constexpr auto pauseAfterOverlay = 120ms;
constexpr auto pauseAfterDiscovery = 180ms;
constexpr auto pauseWhenBlocked = 2500ms;
constexpr auto pauseAfterOverrides = 120ms;
constexpr auto pauseBeforeEngine = 80ms;

void showStatus(SequenceStage& stage, std::size_t index, std::string status) {
  stage.updateStep(index, [status = std::move(status)](SplashStep& step) { step.status = status; });
}

void showOutcome(SequenceStage& stage, std::size_t index, std::string status, bool failed) {
  stage.updateStep(index, [status = std::move(status), failed](SplashStep& step) {
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

DiscoveryOutcome discover(const LaunchRequest& request, SequenceStage& stage) {
  const OverlayKeys& overlay = request.overlay;
  DiscoveryOutcome outcome = discoverAndResolve(
      overlay, [&](std::string status) { showStatus(stage, discoveryStep, std::move(status)); },
      [&](const std::string& proxyServer, const std::string& endpointURL) {
        return stage.attempt(proxyServer, endpointURL);
      });
  if (outcome.failed()) {
    writeErrorFile(request.userDataDir, errorRecord(outcome, overlay.proxyServer));
  }
  showOutcome(stage, discoveryStep, discoveryText(outcome, blocksEngine(overlay, outcome)),
              outcome.failed());
  return outcome;
}

}  // namespace

std::optional<DiscoveryOutcome> playLaunchSequence(const LaunchRequest& request,
                                                   SequenceStage& stage) {
  removeErrorFile(request.userDataDir);
  showOutcome(stage, overlayStep, request.overlay.proxyServer, false);
  stage.pause(pauseAfterOverlay);
  if (stage.isCancelled()) return std::nullopt;
  DiscoveryOutcome outcome = discover(request, stage);
  const bool blocked = blocksEngine(request.overlay, outcome);
  stage.pause(blocked ? pauseWhenBlocked : pauseAfterDiscovery);
  if (stage.isCancelled()) return std::nullopt;
  showOutcome(stage, overridesStep, overridesText(outcome.persona, blocked), blocked);
  stage.pause(pauseAfterOverrides);
  showOutcome(stage, engineStep, engineText(blocked), blocked);
  stage.pause(pauseBeforeEngine);
  return outcome;
}

}  // namespace quillon
