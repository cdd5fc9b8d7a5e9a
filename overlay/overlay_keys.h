#pragma once

#include <map>
#include <string>
#include <string_view>

#include "platform/core/path.h"
#include "platform/text/json.h"

namespace quillon {

/// What the persona overlay asks for. The initial values are those of an overlay that says nothing.
/// A field ending in `Set` tells that the overlay has the key, whatever its value: the setting is
/// then given, and the launcher neither derives it nor passes a value of its own.
struct OverlayKeys {
  std::string proxyServer;
  bool webrtcNoLeak = false;
  bool webrtcFakePublicIpSet = false;
  /// "block" or "fallback", never anything else.
  std::string onProxyFail = "block";
  bool autoGeo = false;
  bool autoLang = false;
  bool autoTimezone = false;
  bool geoLatSet = false;
  bool geoLngSet = false;
  bool langSet = false;
  bool acceptLanguageSet = false;
  bool timezoneOverrideSet = false;
  /// Also true whenever there is a start page.
  bool closePreviousTabs = false;
  std::string startPage;
  std::map<std::string, bool> granularStorageReset;
  bool deviceMemorySet = false;
  bool hardwareConcurrencySet = false;
  bool speechVoicesSet = false;
  std::string webglProfile;
  /// As given, without blanks around it; not checked.
  std::string cdpTcpPort;

  bool operator==(const OverlayKeys&) const = default;
};

/// The keys of an overlay object. Each key is taken on its own: a value of the wrong kind leaves
/// that field as it was and touches no other.
[[nodiscard]] OverlayKeys overlayKeysFrom(const platform::JsonObject& overlayObject);

/// The same for the overlay file; the defaults when it holds no object.
[[nodiscard]] OverlayKeys loadOverlayKeys(const platform::Path& overlayURL);

/// A key read as a switch: true for true, for a number other than zero (0.5 is one) and for the
/// strings "true" and "1"; false for everything else and for a missing key.
[[nodiscard]] bool overlayBool(std::string_view key, const platform::JsonObject& overlayObject);

}  // namespace quillon
