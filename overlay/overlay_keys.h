#pragma once

#include <array>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>

#include "platform/text/json.h"

/// The keys of the persona overlay: one table, and the record that it fills. Any thread.
namespace quillon {

/// What the persona overlay asks for. The initial values are those of an empty overlay.
/// A field that ends in `Set` is true if the overlay contains the key, whatever its value. The
/// launcher then neither derives this setting nor passes a value of its own.
struct OverlayKeys {
  std::string proxyServer;
  bool webrtcNoLeak = false;
  bool webrtcFakePublicIpSet = false;
  /// Only "block" or "fallback".
  std::string onProxyFail = "block";
  bool autoGeo = false;
  bool autoLang = false;
  bool autoTimezone = false;
  bool geoLatSet = false;
  bool geoLngSet = false;
  bool langSet = false;
  bool acceptLanguageSet = false;
  bool timezoneOverrideSet = false;
  /// Always true if there is a start page.
  bool closePreviousTabs = false;
  std::string startPage;
  std::map<std::string, bool> granularStorageReset;
  bool deviceMemorySet = false;
  bool hardwareConcurrencySet = false;
  bool speechVoicesSet = false;
  std::string webglProfile;
  /// The value without spaces around it; not checked.
  std::string cdpTcpPort;

  bool operator==(const OverlayKeys&) const = default;
};

/// How the launcher reads the value of a key. A value of another type is ignored.
enum class OverlayKeyType {
  /// A string.
  text,
  /// What `isTrueKeyValue` accepts.
  boolean,
  /// Any value: only the presence of the key matters. The engine reads the value.
  presence,
  /// "block" or "fallback".
  failPolicy,
  /// A number or a string.
  port,
  /// An object whose members `resetMemberValue` reads.
  resetMembers,
  /// An object of engine switches. The launcher uses only "--proxy-server".
  rawSwitches,
};

/// One key of the overlay, and the field that its value is stored in.
struct OverlayKey {
  using Field = std::variant<std::string OverlayKeys::*, bool OverlayKeys::*,
                             std::map<std::string, bool> OverlayKeys::*>;

  std::string_view name;
  OverlayKeyType type;
  Field field;
};

/// Every key that the launcher knows. Keys are read in this order: "proxy-server" takes precedence
/// over "chrome-command-line".
inline constexpr auto overlayKeyTable = std::to_array<OverlayKey>({
    {"proxy-server", OverlayKeyType::text, &OverlayKeys::proxyServer},
    {"on-proxy-fail", OverlayKeyType::failPolicy, &OverlayKeys::onProxyFail},
    {"webrtc-no-leak", OverlayKeyType::boolean, &OverlayKeys::webrtcNoLeak},
    {"webrtc-fake-public-ip", OverlayKeyType::presence, &OverlayKeys::webrtcFakePublicIpSet},
    {"auto-geo", OverlayKeyType::boolean, &OverlayKeys::autoGeo},
    {"geo-lat", OverlayKeyType::presence, &OverlayKeys::geoLatSet},
    {"geo-lng", OverlayKeyType::presence, &OverlayKeys::geoLngSet},
    {"auto-lang", OverlayKeyType::boolean, &OverlayKeys::autoLang},
    {"lang", OverlayKeyType::presence, &OverlayKeys::langSet},
    {"accept-language", OverlayKeyType::presence, &OverlayKeys::acceptLanguageSet},
    {"auto-timezone", OverlayKeyType::boolean, &OverlayKeys::autoTimezone},
    {"timezone-override", OverlayKeyType::presence, &OverlayKeys::timezoneOverrideSet},
    {"start-page", OverlayKeyType::text, &OverlayKeys::startPage},
    {"close-previous-tabs", OverlayKeyType::boolean, &OverlayKeys::closePreviousTabs},
    {"granular-storage-reset", OverlayKeyType::resetMembers, &OverlayKeys::granularStorageReset},
    {"device-memory", OverlayKeyType::presence, &OverlayKeys::deviceMemorySet},
    {"hardware-concurrency", OverlayKeyType::presence, &OverlayKeys::hardwareConcurrencySet},
    {"speech-voices", OverlayKeyType::presence, &OverlayKeys::speechVoicesSet},
    {"webgl-profile", OverlayKeyType::text, &OverlayKeys::webglProfile},
    {"cdp-tcp-port", OverlayKeyType::port, &OverlayKeys::cdpTcpPort},
    {"chrome-command-line", OverlayKeyType::rawSwitches, &OverlayKeys::proxyServer},
});

/// The key of that name. A name that is not in the table does not compile.
[[nodiscard]] consteval const OverlayKey& overlayKey(std::string_view name) {
  for (const OverlayKey& key : overlayKeyTable) {
    if (key.name == name) return key;
  }
  throw std::invalid_argument("overlayKeyTable has no such key");
}

/// The keys of an overlay object. Each key is read independently of the others: a value of the
/// wrong type leaves its field unchanged.
[[nodiscard]] OverlayKeys overlayKeysFrom(const platform::JsonObject& overlayObject);

/// The same for an overlay file that was read; the initial values if it contains no JSON object.
[[nodiscard]] OverlayKeys loadOverlayKeys(const std::optional<platform::JsonObject>& overlayObject);

/// The value of a key as `isTrueKeyValue` reads it; false for a missing key.
[[nodiscard]] bool overlayBool(const OverlayKey& key, const platform::JsonObject& overlayObject);

}  // namespace quillon
