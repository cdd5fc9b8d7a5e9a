// Overlay text to keys, run mode, switches and summary.

#include <algorithm>
#include <string_view>

#include "discovery/persona.h"
#include "engine/engine_spawn.h"
#include "engine/override_switches.h"
#include "overlay/overlay_keys.h"
#include "platform/text/json.h"
#include "platform/text/text.h"
#include "profile/profile_items.h"
#include "splash/overrides_summary.h"
#include "splash/splash_window.h"
#include "tools/fuzz/require.h"

namespace {

using namespace quillon;
using fuzz::require;

void checkSwitches(const OverlayKeys& keys) {
  const SwitchList switches = machineSwitches(keys, {std::uint64_t{16} << 30, 8});
  require(!switches.empty());
  require(switches.back() == keys.startPage || switches.back() == "chrome://version");
  const SwitchList debugging = debuggingSwitches(keys.cdpTcpPort, {});
  require(debugging.empty() || debugging.size() == 2);
  require(debuggingSwitches(keys.cdpTcpPort, {"--remote-debugging-port=1"}).empty());
}

void checkSummary(const platform::JsonObject& overlay) {
  const OverridesSummary summary = summarizeOverlay(&overlay);
  require(std::is_sorted(summary.activeKeys.begin(), summary.activeKeys.end()));
  for (const std::string& key : summary.activeKeys) {
    require(overlay.find(key) != nullptr && isActiveOverlayValue(*overlay.find(key)));
  }
  const SplashWindow splash(initialSplashSteps(), &overlay);
  const std::size_t lines = summary.activeKeys.size() + summary.switchKeys.size();
  const std::size_t rows = splash.rows.size() * 3 + 2;
  require(splash.window.labels().size() >= rows + lines);
  for (const platform::ui::Label& label : splash.window.labels()) {
    require(platform::isValidUtf8(label.text));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto overlay = platform::parseJsonObject({reinterpret_cast<const char*>(data), size});
  if (!overlay) return -1;
  const OverlayKeys keys = overlayKeysFrom(*overlay);
  require(keys.onProxyFail == "block" || keys.onProxyFail == "fallback");
  require(keys.startPage.empty() || keys.closePreviousTabs);
  require(!needsDiscovery(keys) || keys.webrtcNoLeak || wantsMoreThanAddress(keys));
  ProfileItems removals;
  resetGranularStorage(removals, keys.granularStorageReset);
  require(removals.size() <= 17);
  checkSwitches(keys);
  checkSummary(*overlay);
  // What the launcher shows of a value is text that it can read back.
  for (const platform::JsonMember& member : overlay->members()) {
    if (member.value.as<platform::JsonObject>() == nullptr) continue;
    require(platform::parseJsonObject(compactJsonText(member.value)).has_value());
  }
  return 0;
}
