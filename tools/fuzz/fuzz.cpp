// Fuzz targets for untrusted input. Each fuzz program calls one of the functions below on its
// inputs. If a check fails, the program ends and reports the input as a finding.

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "discovery/egress_discovery.h"
#include "discovery/endpoint_reply.h"
#include "discovery/persona.h"
#include "engine/engine_arguments.h"
#include "overlay/true_values.h"
#include "overlay/webgl_catalogue.h"
#include "platform/text/json.h"
#include "platform/text/text.h"
#include "profile/profile_items.h"
#include "reports/launch_error.h"
#include "reports/launch_result.h"
#include "reports/report_text.h"
#include "splash/overrides_summary.h"
#include "splash/splash_window.h"

namespace quillon {
namespace {

using platform::JsonObject;

void require(bool holds) {
  if (!holds) std::abort();
}

void checkSwitches(const OverlayKeys& keys) {
  const EngineArguments arguments = engineArguments("/engine", {}, keys, {}, nullptr);
  const bool hasStartPage =
      std::any_of(arguments.begin(), arguments.end(), [&](const auto& argument) {
        return argument.text == keys.startPage || argument.text == "chrome://version";
      });
  require(hasStartPage);
  const SwitchList debugging = debuggingSwitches(keys.cdpTcpPort, {});
  require(debugging.empty() || debugging.size() == 2);
  require(debuggingSwitches(keys.cdpTcpPort, {"--remote-debugging-port=1"}).empty());
}

void checkSummary(const JsonObject& overlay) {
  const OverridesSummary summary = summarizeOverlay(&overlay);
  require(std::is_sorted(summary.activeKeys.begin(), summary.activeKeys.end()));
  for (const std::string& key : summary.activeKeys) {
    require(overlay.find(key) != nullptr && isActiveOverlayValue(*overlay.find(key)));
  }
  const SplashWindow splash(initialSplashSteps(), &overlay);
  const std::size_t lines = summary.activeKeys.size() + summary.switchKeys.size();
  require(splash.window.labels().size() >= splash.rows.size() * 3 + 2 + lines);
  for (const platform::ui::Label& label : splash.window.labels()) {
    require(platform::isValidUtf8(label.text));
  }
}

/// Converts overlay text to keys, run mode, switches and summary.
[[maybe_unused]] int overlay(std::string_view input) {
  const auto object = platform::parseJsonObject(input);
  if (!object) return -1;
  const OverlayKeys keys = overlayKeysFrom(*object);
  require(keys.onProxyFail == "block" || keys.onProxyFail == "fallback");
  require(keys.startPage.empty() || keys.closePreviousTabs);
  require(!needsDiscovery(keys) || keys.webrtcNoLeak || wantsMoreThanAddress(keys));
  ProfileItems removals;
  resetGranularStorage(removals, keys.granularStorageReset);
  require(removals.size() <= 17);
  checkSwitches(keys);
  checkSummary(*object);
  // The launcher's text for a value can be parsed back.
  for (const platform::JsonMember& member : object->members()) {
    if (member.value.as<JsonObject>() == nullptr) continue;
    require(platform::parseJsonObject(compactJsonText(member.value)).has_value());
  }
  return 0;
}

/// Converts a curl reply to a discovery result and a persona. The first byte sets how curl ended
/// and whether its output was truncated; the rest is the reply.
[[maybe_unused]] int reply(std::string_view input) {
  if (input.empty()) return -1;
  const auto head = static_cast<unsigned char>(input.front());
  platform::ChildRun run;
  run.exitStatus = head >> 1;
  run.output = input.substr(1);
  run.outputBytes = run.output.size() + (head & 1U);
  const DiscoverResult result =
      interpretCurlRun(run, 12, {"socks5://127.0.0.1:1080", "https://geoip.quillon.example/"});
  require(result.elapsedMs == 12 && result.curlExitCode == run.exitStatus);
  require(result.errorCode.empty() == result.message.empty());
  require(!result.errorCode.empty() || isUsableAddress(result.ip));
  for (const std::string* text : {&result.ip, &result.message, &result.countryCode,
                                  &result.timezone, &result.latitude, &result.longitude}) {
    require(platform::isValidUtf8(*text));
  }
  OverlayKeys keys;
  keys.webrtcNoLeak = keys.autoGeo = keys.autoLang = keys.autoTimezone = true;
  const ResolvedPersona persona = resolvePersona(keys, result);
  require(persona.resolvedFakeIP == result.ip);
  require(persona.resolvedGeoLat.empty() == persona.resolvedGeoLng.empty());
  require(persona.resolvedLang.empty() == persona.resolvedAcceptLang.empty());
  return 0;
}

void checkReport(const std::string& report, std::string_view key, std::string_view text) {
  require(report.find('\n') == report.size() - 1);
  const auto object = platform::parseJsonObject(report);
  require(object.has_value());
  const auto* value = object->find<std::string>(key);
  require(value != nullptr && *value == text);
}

/// Writes any text into both reports and parses them with the JSON reader.
[[maybe_unused]] int report(std::string_view input) {
  require(platform::jsonEscape(input).size() >= input.size());
  // The reader accepts UTF-8 only. Every text that the launcher reports is UTF-8.
  if (!platform::isValidUtf8(input)) return 0;
  const std::string text(input);
  checkReport(launchResultText({.timezone = text}, "T"), "timezone", text);
  checkReport(launchErrorText({.proxy = text}, "T"), "proxy", text);
  return 0;
}

/// Converts a catalogue to the switches of each of its profiles.
[[maybe_unused]] int catalogue(std::string_view input) {
  const auto object = platform::parseJsonObject(input);
  const auto* profiles = object ? object->find<JsonObject>("profiles") : nullptr;
  if (profiles == nullptr) return -1;
  for (const platform::JsonMember& profile : profiles->members()) {
    const auto switches = switchesOfWebglProfile(*object, profile.key);
    const auto* entries = profile.value.as<JsonObject>();
    require(switches.size() <= (entries == nullptr ? 0 : entries->members().size()));
    for (const std::string& text : switches) {
      require(text.starts_with("--") && !text.starts_with("--_"));
      require(text.find('=') < text.size() - 1 && platform::isValidUtf8(text));
    }
  }
  return 0;
}

}  // namespace
}  // namespace quillon

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  return quillon::FUZZED({reinterpret_cast<const char*>(data), size});
}
