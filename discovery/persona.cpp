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

using Persona = ResolvedPersona;

constexpr std::array<Derivation, derivationCount> derivations{{
    {overlayKey("webrtc-no-leak"), overlayKey("webrtc-fake-public-ip"), &Persona::resolvedFakeIP},
    {overlayKey("auto-geo"), overlayKey("geo-lat"), &Persona::resolvedGeoLat},
    {overlayKey("auto-geo"), overlayKey("geo-lng"), &Persona::resolvedGeoLng},
    {overlayKey("auto-lang"), overlayKey("lang"), &Persona::resolvedLang},
    {overlayKey("auto-lang"), overlayKey("accept-language"), &Persona::resolvedAcceptLang},
    {overlayKey("auto-timezone"), overlayKey("timezone-override"), &Persona::resolvedTZ},
}};

bool isDerived(const Derivation& derivation, const OverlayKeys& overlay) {
  const auto isTrue = [&](const OverlayKey& key) {
    return overlay.*std::get<bool OverlayKeys::*>(key.field);
  };
  return isTrue(derivation.askedBy) && !isTrue(derivation.key);
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
