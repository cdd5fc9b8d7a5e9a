#pragma once

#include <array>
#include <string_view>

namespace quillon {

/// How the launcher reads a key of the overlay.
enum class OverlayKeyKind {
  /// A string; any other value counts as absent.
  text,
  /// On for true, a number other than 0, "true" and "1".
  onOff,
  /// Only whether it is there; the engine reads its value.
  presence,
  /// "block" or "fallback".
  policy,
  /// A port as a number or a string.
  port,
  /// An object of switches that are on for true and a number other than 0.
  resetKeys,
  /// An object of raw engine switches.
  rawSwitches,
};

struct OverlayKey {
  std::string_view name;
  OverlayKeyKind kind;
};

inline constexpr std::size_t overlayKeyCount = 21;

/// Every key of the overlay that means something to the launcher, in the order in which the README
/// explains them.
extern const std::array<OverlayKey, overlayKeyCount> overlayKeyList;

}  // namespace quillon
