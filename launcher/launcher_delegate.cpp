#include "launcher/launcher_delegate.h"

#include <utility>

#include "launcher/process_values.h"
#include "overlay/overlay_file.h"
#include "platform/dispatch/dispatch.h"
#include "platform/system/system.h"

namespace quillon {

void onMainThread(std::function<void()> change) {
  if (platform::isMainThread()) {
    change();
  } else {
    platform::postToMain(std::move(change));
  }
}

LauncherDelegate::LauncherDelegate(OverlayKeys overlayKeys, platform::Path engine,
                                   std::vector<std::string> arguments,
                                   std::optional<std::string> profile)
    : overlay(std::move(overlayKeys)),
      engineBinary(std::move(engine)),
      originalArgs(std::move(arguments)),
      userDataDir(std::move(profile)) {}

void LauncherDelegate::applicationDidFinishLaunching() {
  const auto overlayObject = readOverlayObject(processValues().overlayURL);
  splash.emplace(initialSplashSteps(), overlayObject ? &*overlayObject : nullptr);
  splash->window.delegate = this;
  splash->showSplash();
  platform::runInBackground([weak = weak_from_this()] {
    if (const auto delegate = weak.lock()) delegate->runLaunchSequence();
  });
}

void LauncherDelegate::windowWillClose() {
  cancelled = true;
  platform::endProcess(0);
}

void LauncherDelegate::updateStep(std::size_t index, std::function<void(SplashStep&)> change) {
  onMainThread([this, index, change = std::move(change)] { splash->updateStep(index, change); });
}

}  // namespace quillon
