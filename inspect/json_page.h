#pragma once

#include <string>

#include "inspect/finding.h"

namespace quillon {

/// All that is known of a launch as one JSON object on one line, with a line feed, for programs.
/// Arguments and paths may be any bytes, JSON is UTF-8: each byte that is none becomes U+FFFD.
/// Pure.
[[nodiscard]] std::string jsonPage(const LaunchPreview& preview, const Findings& findings);

}  // namespace quillon
