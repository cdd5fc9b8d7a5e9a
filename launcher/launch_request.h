#pragma once

#include <optional>
#include <string>
#include <vector>

#include "overlay/overlay_keys.h"
#include "platform/core/path.h"

namespace quillon {

/// The input of one launch.
struct LaunchRequest {
  OverlayKeys overlay;
  platform::Path engineBinary;
  /// The launcher's arguments without the program path, unchanged. They need not be UTF-8.
  std::vector<std::string> originalArgs;
  /// The profile folder. Absent if no argument sets it, empty if its argument has no value.
  std::optional<std::string> userDataDir;
};

}  // namespace quillon
