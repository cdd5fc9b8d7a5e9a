#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "discovery/egress_discovery.h"
#include "overlay/overlay_keys.h"

/// The persona's values that are derived from a discovery. Pure; any thread.
namespace quillon {

/// The facts of the attempt whose result was used, for the result file.
struct DiscoveryCapture {
  std::string ip;
  /// As in the reply.
  std::string countryCode;
  /// The endpoint of the last attempt.
  std::string provider;
  std::string timezone;
  /// Milliseconds, the sum of all attempts.
  std::int64_t elapsedMs = 0;
};

/// The derived values. A value that was not derived is empty.
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
  /// The overlay key that asks for it. Its field is boolean.
  OverlayKey askedBy;
  /// The overlay key that sets it instead, also boolean. The engine's switch has the same name.
  OverlayKey key;
  std::string ResolvedPersona::*value = nullptr;
};

inline constexpr std::size_t derivationCount = 6;
extern const std::array<Derivation, derivationCount> derivations;

/// Whether the overlay asks for the value and does not set it itself.
[[nodiscard]] bool isDerived(const Derivation& derivation, const OverlayKeys& overlay);

/// The run mode: windowed if the overlay asks for a value that it does not set itself, otherwise
/// passthrough. Only a windowed launch runs a discovery and shows the window.
[[nodiscard]] bool needsDiscovery(const OverlayKeys& overlay);

/// Whether the overlay asks for more than the address. The fallback endpoint replies with the
/// address only, so it is not used in this case.
[[nodiscard]] bool wantsMoreThanAddress(const OverlayKeys& overlay);

/// The values that the overlay asks for and does not set itself, from a successful discovery.
[[nodiscard]] ResolvedPersona resolvePersona(const OverlayKeys& overlay,
                                             const DiscoverResult& discovered);

}  // namespace quillon
