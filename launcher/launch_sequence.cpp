#include <array>
#include <string_view>
#include <utility>

#include "discovery/discover_and_resolve.h"
#include "launcher/launcher_delegate.h"
#include "platform/dispatch/dispatch.h"
#include "platform/system/system.h"
#include "reports/launch_error.h"

namespace quillon {
namespace {

using namespace std::chrono_literals;

constexpr std::size_t overlayStep = 0;
constexpr std::size_t overridesStep = 2;
constexpr std::size_t engineStep = 3;

/// Long enough for the eye to follow the steps, and to read why a launch is blocked.
constexpr auto pauseAfterOverlay = 120ms;
constexpr auto pauseAfterDiscovery = 180ms;
constexpr auto pauseWhenBlocked = 2500ms;
constexpr auto pauseAfterOverrides = 120ms;
constexpr auto pauseBeforeEngine = 80ms;

SplashStep overridesOutcome(SplashStep step, const ResolvedPersona& persona, bool blocked) {
  step.status = blocked ? "skipped — engine launch blocked" : appliedOverridesText(persona);
  step.done = true;
  step.failed = blocked;
  return step;
}

}  // namespace

std::string appliedOverridesText(const ResolvedPersona& persona) {
  const std::array<std::pair<std::string_view, const std::string*>, 5> parts{{
      {"ip=", &persona.resolvedFakeIP},
      {"tz=", &persona.resolvedTZ},
      {"lang=", &persona.resolvedLang},
      {"lat=", &persona.resolvedGeoLat},
      {"lng=", &persona.resolvedGeoLng},
  }};
  std::string text;
  for (const auto& [name, value] : parts) {
    if (value->empty()) continue;
    if (!text.empty()) text += ' ';
    text.append(name).append(*value);
  }
  return text.empty() ? "none (passthrough)" : text;
}

void LauncherDelegate::runLaunchSequence() {
  const auto leaveIfCancelled = [this] {
    const bool leave = cancelled;
    if (leave) platform::postToMain([] { platform::endProcess(0); });
    return leave;
  };
  removeErrorFile(userDataDir);
  updateStep(overlayStep, [this](SplashStep& step) {
    step.status = overlay.proxyServer;
    step.done = true;
  });
  platform::sleepFor(pauseAfterOverlay);
  if (leaveIfCancelled()) return;
  discoverAndResolve(*this);
  platform::sleepFor(blockEngine ? pauseWhenBlocked : pauseAfterDiscovery);
  if (leaveIfCancelled()) return;
  updateStep(overridesStep, [persona = persona, blocked = blockEngine](SplashStep& step) {
    step = overridesOutcome(step, persona, blocked);
  });
  platform::sleepFor(pauseAfterOverrides);
  updateStep(engineStep, [blocked = blockEngine](SplashStep& step) {
    step.done = true;
    if (blocked) step.status = "aborted (exit 42)";
    step.failed = blocked;
  });
  platform::sleepFor(pauseBeforeEngine);
  platform::postToMain([this] { finishLaunch(); });
}

}  // namespace quillon
