#include "discovery/persona.h"

#include "discovery/country_languages.h"

namespace quillon {

bool needsDiscovery(const OverlayKeys& overlay) {
  return (overlay.webrtcNoLeak && !overlay.webrtcFakePublicIpSet) ||
         (overlay.autoGeo && !(overlay.geoLatSet && overlay.geoLngSet)) ||
         (overlay.autoLang && !(overlay.langSet && overlay.acceptLanguageSet)) ||
         (overlay.autoTimezone && !overlay.timezoneOverrideSet);
}

bool wantsMoreThanAddress(const OverlayKeys& overlay) {
  return overlay.autoGeo || overlay.autoLang || overlay.autoTimezone;
}

ResolvedPersona resolvePersona(const OverlayKeys& overlay, const DiscoverResult& discovered) {
  ResolvedPersona persona;
  if (overlay.webrtcNoLeak && !overlay.webrtcFakePublicIpSet) {
    persona.resolvedFakeIP = discovered.ip;
  }
  if (overlay.autoGeo && !discovered.latitude.empty() && !discovered.longitude.empty()) {
    if (!overlay.geoLatSet) persona.resolvedGeoLat = discovered.latitude;
    if (!overlay.geoLngSet) persona.resolvedGeoLng = discovered.longitude;
  }
  if (overlay.autoLang && !discovered.countryCode.empty()) {
    const auto [primary, accept] = lookupCountryLang(discovered.countryCode);
    if (!overlay.langSet) persona.resolvedLang = primary;
    if (!overlay.acceptLanguageSet) persona.resolvedAcceptLang = accept;
  }
  if (overlay.autoTimezone && !overlay.timezoneOverrideSet) {
    persona.resolvedTZ = discovered.timezone;
  }
  return persona;
}

}  // namespace quillon
