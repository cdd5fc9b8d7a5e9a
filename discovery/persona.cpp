#include "discovery/persona.h"

#include <algorithm>

#include "discovery/country_languages.h"
#include "discovery/endpoint_reply.h"

namespace quillon {
namespace {

/// All values that a discovery gives, whether or not the overlay asks for them. A coordinate is
/// used only together with the other one.
ResolvedPersona offeredBy(const DiscoverResult& discovered) {
  ResolvedPersona offered;
  offered.resolvedFakeIP = discovered.ip;
  if (isUsableCoordinate(discovered.latitude) && isUsableCoordinate(discovered.longitude)) {
    offered.resolvedGeoLat = discovered.latitude;
    offered.resolvedGeoLng = discovered.longitude;
  }
  if (!discovered.countryCode.empty()) {
    const auto [primary, accept] = lookupCountryLang(discovered.countryCode);
    offered.resolvedLang = primary;
    offered.resolvedAcceptLang = accept;
  }
  offered.resolvedTZ = discovered.timezone;
  return offered;
}

}  // namespace

using Keys = OverlayKeys;
using Persona = ResolvedPersona;

const std::array<Derivation, derivationCount> derivations{{
    {"webrtc-no-leak", "webrtc-fake-public-ip", &Keys::webrtcNoLeak, &Keys::webrtcFakePublicIpSet,
     &Persona::resolvedFakeIP},
    {"auto-geo", "geo-lat", &Keys::autoGeo, &Keys::geoLatSet, &Persona::resolvedGeoLat},
    {"auto-geo", "geo-lng", &Keys::autoGeo, &Keys::geoLngSet, &Persona::resolvedGeoLng},
    {"auto-lang", "lang", &Keys::autoLang, &Keys::langSet, &Persona::resolvedLang},
    {"auto-lang", "accept-language", &Keys::autoLang, &Keys::acceptLanguageSet,
     &Persona::resolvedAcceptLang},
    {"auto-timezone", "timezone-override", &Keys::autoTimezone, &Keys::timezoneOverrideSet,
     &Persona::resolvedTZ},
}};

bool isDerived(const Derivation& derivation, const OverlayKeys& overlay) {
  return overlay.*derivation.isAskedFor && !(overlay.*derivation.isGiven);
}

bool needsDiscovery(const OverlayKeys& overlay) {
  return std::any_of(derivations.begin(), derivations.end(),
                     [&](const Derivation& derivation) { return isDerived(derivation, overlay); });
}

bool wantsMoreThanAddress(const OverlayKeys& overlay) {
  return overlay.autoGeo || overlay.autoLang || overlay.autoTimezone;
}

ResolvedPersona resolvePersona(const OverlayKeys& overlay, const DiscoverResult& discovered) {
  const ResolvedPersona offered = offeredBy(discovered);
  ResolvedPersona persona;
  for (const Derivation& derivation : derivations) {
    if (isDerived(derivation, overlay)) persona.*derivation.value = offered.*derivation.value;
  }
  return persona;
}

}  // namespace quillon
