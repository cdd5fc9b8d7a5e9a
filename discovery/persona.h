#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "discovery/egress_discovery.h"
#include "overlay/overlay_keys.h"

/// What follows from a discovery. Pure; any thread.
namespace quillon {

/// The facts of the attempt whose result was used, for the result file.
struct DiscoveryCapture {
  std::string ip;
  /// As the endpoint gave it.
  std::string countryCode;
  /// Which endpoint was asked last.
  std::string provider;
  std::string timezone;
  /// Milliseconds of all attempts together.
  std::int64_t elapsedMs = 0;
};

/// The persona values that were derived; an empty one was not.
struct ResolvedPersona {
  std::string resolvedFakeIP;
  std::string resolvedGeoLat;
  std::string resolvedGeoLng;
  std::string resolvedLang;
  std::string resolvedAcceptLang;
  std::string resolvedTZ;

  bool operator==(const ResolvedPersona&) const = default;
};

/// A persona value that a discovery gives.
struct Derivation {
  using KeyFlag = bool OverlayKeys::*;
  using PersonaValue = std::string ResolvedPersona::*;

  /// The overlay key that asks for it.
  std::string_view askedBy;
  /// The overlay key that gives it outright; the engine's switch has the same name.
  std::string_view key;
  KeyFlag isAskedFor;
  KeyFlag isGiven;
  PersonaValue value;
};

inline constexpr std::size_t derivationCount = 6;
extern const std::array<Derivation, derivationCount> derivations;

/// Whether the overlay asks for the value and does not carry it.
[[nodiscard]] bool isDerived(const Derivation& derivation, const OverlayKeys& overlay);

/// Whether the overlay asks for a value that it does not carry itself: only then is a discovery,
/// and with it a window, needed.
[[nodiscard]] bool needsDiscovery(const OverlayKeys& overlay);

/// Whether the overlay asks for more than the address. The fallback endpoint tells no more than
/// that, so it is no help then.
[[nodiscard]] bool wantsMoreThanAddress(const OverlayKeys& overlay);

/// The values that a successful discovery gives to an overlay: those it asks for and does not
/// carry.
[[nodiscard]] ResolvedPersona resolvePersona(const OverlayKeys& overlay,
                                             const DiscoverResult& discovered);

}  // namespace quillon
