#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "inspect/launch_preview.h"

namespace quillon {

/// One of the engine's arguments and who put it there: "engine" for its own path, "caller",
/// "catalogue", "persona", "machine" or "launcher".
struct OriginatedArgument {
  std::string_view origin;
  std::string text;
};

/// The plan's engine arguments, each with its origin. Pure.
[[nodiscard]] std::vector<OriginatedArgument> originsOf(const LaunchPreview& preview);

}  // namespace quillon
