#include "launcher/launcher_delegate.h"

#include <utility>

#include "launcher/exit_status.h"
#include "launcher/launch_execution.h"
#include "overlay/overlay_location.h"
#include "platform/dispatch/dispatch.h"

namespace quillon {

void onMainThread(std::function<void()> change) {
  if (platform::isMainThread()) {
    change();
  } else {
    platform::postToMain(std::move(change));
  }
}

LauncherDelegate::LauncherDelegate(ProcessValues processValues)
    : values(std::move(processValues)) {}

void LauncherDelegate::applicationDidFinishLaunching() {
  const auto overlayObject = readOverlayObject(values.overlayURL);
  splash.emplace(initialSplashSteps(), overlayObject ? &*overlayObject : nullptr);
  splash->window.delegate = this;
  splash->showSplash();
  platform::runInBackground([this] { runLaunchSequence(); });
}

void LauncherDelegate::windowWillClose() {
  cancelled = true;
  exitProcess(ExitStatus::success);
}

void LauncherDelegate::runLaunchSequence() {
  auto outcome = takeLaunchSteps(values.request, sequenceWindow(), discoverEgress);
  if (outcome) {
    platform::postToMain([this, outcome = std::move(*outcome)] { finishLaunch(outcome); });
  } else {
    platform::postToMain([] { exitProcess(ExitStatus::success); });
  }
}

SequenceWindow LauncherDelegate::sequenceWindow() {
  return {.updateStep =
              [this](std::size_t index, std::function<void(SplashStep&)> change) {
                onMainThread([this, index, change = std::move(change)] {
                  splash->updateStep(index, change);
                });
              },
          .pause =
              [this](std::chrono::milliseconds duration) {
                platform::sleepFor(duration);
                return !cancelled;
              }};
}

void LauncherDelegate::finishLaunch(const DiscoveryOutcome& outcome) {
  splash->window.orderOut();
  const LaunchRequest& request = values.request;
  execute(blocksEngine(request.overlay, outcome)
              ? planBlocked(request, outcome)
              : planWindowed(request, gatherFacts(values), outcome));
}

}  // namespace quillon
