#include "overlay/overlay_keys.h"

#include "overlay/overlay_location.h"
#include "platform/text/text.h"

namespace quillon {
namespace {

using platform::JsonNumber;
using platform::JsonObject;
using platform::JsonValue;

std::string proxyServerIn(const JsonObject& overlay) {
  std::string proxy = overlay.text("proxy-server");
  const auto* commandLine = overlay.find<JsonObject>("chrome-command-line");
  if (!proxy.empty() || commandLine == nullptr) return proxy;
  return commandLine->text("--proxy-server");
}

std::string onProxyFailIn(const JsonObject& overlay) {
  const std::string policy = overlay.text("on-proxy-fail");
  return policy == "fallback" ? policy : "block";
}

std::map<std::string, bool> granularStorageResetIn(const JsonObject& overlay) {
  std::map<std::string, bool> reset;
  const auto* entries = overlay.find<JsonObject>("granular-storage-reset");
  if (entries == nullptr) return reset;
  for (const platform::JsonMember& entry : entries->members()) {
    if (const auto* boolean = entry.value.as<bool>()) {
      reset[entry.key] = *boolean;
    } else if (const auto* number = entry.value.as<JsonNumber>()) {
      reset[entry.key] = platform::isNonZero(*number);
    }
  }
  return reset;
}

std::string cdpTcpPortIn(const JsonObject& overlay) {
  const JsonValue* port = overlay.find("cdp-tcp-port");
  if (port == nullptr) return {};
  if (const auto* text = port->as<std::string>()) return std::string(platform::trimBlanks(*text));
  if (const auto* boolean = port->as<bool>()) return *boolean ? "1" : "0";
  const auto* number = port->as<JsonNumber>();
  return number == nullptr ? std::string() : platform::integerPartText(*number);
}

}  // namespace

bool overlayBool(std::string_view key, const JsonObject& overlayObject) {
  const JsonValue* value = overlayObject.find(key);
  if (value == nullptr) return false;
  if (const auto* boolean = value->as<bool>()) return *boolean;
  if (const auto* text = value->as<std::string>()) return *text == "true" || *text == "1";
  const auto* number = value->as<JsonNumber>();
  return number != nullptr && platform::isNonZero(*number);
}

OverlayKeys overlayKeysFrom(const JsonObject& overlayObject) {
  const auto isOn = [&](std::string_view key) { return overlayBool(key, overlayObject); };
  const auto isSet = [&](std::string_view key) { return overlayObject.find(key) != nullptr; };
  OverlayKeys keys;
  keys.proxyServer = proxyServerIn(overlayObject);
  keys.webrtcNoLeak = isOn("webrtc-no-leak");
  keys.webrtcFakePublicIpSet = isSet("webrtc-fake-public-ip");
  keys.onProxyFail = onProxyFailIn(overlayObject);
  keys.autoGeo = isOn("auto-geo");
  keys.autoLang = isOn("auto-lang");
  keys.autoTimezone = isOn("auto-timezone");
  keys.geoLatSet = isSet("geo-lat");
  keys.geoLngSet = isSet("geo-lng");
  keys.langSet = isSet("lang");
  keys.acceptLanguageSet = isSet("accept-language");
  keys.timezoneOverrideSet = isSet("timezone-override");
  keys.startPage = overlayObject.text("start-page");
  keys.closePreviousTabs = isOn("close-previous-tabs") || !keys.startPage.empty();
  keys.granularStorageReset = granularStorageResetIn(overlayObject);
  keys.deviceMemorySet = isSet("device-memory");
  keys.hardwareConcurrencySet = isSet("hardware-concurrency");
  keys.speechVoicesSet = isSet("speech-voices");
  keys.webglProfile = overlayObject.text("webgl-profile");
  keys.cdpTcpPort = cdpTcpPortIn(overlayObject);
  return keys;
}

OverlayKeys loadOverlayKeys(const platform::Path& overlayURL) {
  const auto overlayObject = readOverlayObject(overlayURL);
  return overlayObject ? overlayKeysFrom(*overlayObject) : OverlayKeys();
}

}  // namespace quillon
