#pragma once

#include <string_view>

#include "inspect/finding.h"

namespace quillon {

/// All that the checks find, the gravest first. Pure.
[[nodiscard]] Findings findingsOf(const LaunchPreview& preview);

[[nodiscard]] std::string_view nameOf(Finding::Level level);

/// What is wrong with the overlay file, its keys' names and their values.
[[nodiscard]] Findings overlayFileFindings(const LaunchPreview& preview);
[[nodiscard]] Findings overlayValueFindings(const LaunchPreview& preview);
/// Settings that do not go together, or not with the arguments.
[[nodiscard]] Findings overlayEffectFindings(const LaunchPreview& preview);
/// The WebGL profile and its catalogue.
[[nodiscard]] Findings catalogueFindings(const LaunchPreview& preview);
/// The caller's arguments.
[[nodiscard]] Findings argumentFindings(const LaunchPreview& preview);
/// The engine, curl, the endpoints and the profile folder.
[[nodiscard]] Findings hostFindings(const LaunchPreview& preview);
/// What a discovery came to.
[[nodiscard]] Findings discoveryFindings(const LaunchPreview& preview);

}  // namespace quillon
