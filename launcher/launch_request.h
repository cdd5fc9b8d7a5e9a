#pragma once

#include <optional>
#include <string>
#include <vector>

#include "overlay/overlay_keys.h"
#include "platform/core/path.h"

namespace quillon {

/// What is asked of one launch.
struct LaunchRequest {
  OverlayKeys overlay;
  platform::Path engineBinary;
  /// The launcher's arguments without the program path, as they came: not necessarily UTF-8.
  std::vector<std::string> originalArgs;
  /// The profile folder; absent when no argument names one, empty when one names nothing.
  std::optional<std::string> userDataDir;
};

}  // namespace quillon
