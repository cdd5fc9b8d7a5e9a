#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "inspect/launch_preview.h"

namespace quillon {

/// Something that the user would want to know before the launch.
struct Finding {
  enum class Level {
    /// The launch fails, or a persona value leaks or gets lost.
    error,
    /// A setting has no effect, or not the one that its author thinks.
    warning,
    /// Worth knowing.
    note,
  };

  Level level;
  /// The overlay's key; empty when it is about none.
  std::string key;
  /// What is wrong and where, what will happen, what to do.
  std::string message;
};

using Findings = std::vector<Finding>;

/// Checks a launch for one kind of mistake. Pure.
using Check = Findings (*)(const LaunchPreview& preview);

/// What each of the checks finds, in their order.
[[nodiscard]] Findings findWith(std::span<const Check> checks, const LaunchPreview& preview);

/// A key and the overlay file that it is or should be in, for a message.
[[nodiscard]] std::string inOverlay(const LaunchPreview& preview, std::string_view key);

/// A finding about a key of the overlay. The message is `inOverlay` followed by `text`.
[[nodiscard]] Finding findingAbout(const OverlayKey& key, Finding::Level level,
                                   const LaunchPreview& preview, std::string_view text);

}  // namespace quillon
