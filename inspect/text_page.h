#pragma once

#include <string>

#include "inspect/finding.h"
#include "inspect/text_rows.h"

namespace quillon {

/// All that is known of a launch, for a human. Passwords in proxy URLs are masked. Looks at the
/// size of what would be removed, which takes its time for large trees.
[[nodiscard]] std::string textPage(const LaunchPreview& preview, const Findings& findings,
                                   const TextStyle& style);

}  // namespace quillon
