#pragma once

#include <cstdint>

#include "platform/core/path.h"

namespace quillon::platform {

/// How much there is of a file, or of a folder with everything below it.
struct TreeSize {
  /// Everything that is no folder.
  std::uint64_t files = 0;
  std::uint64_t bytes = 0;
  /// False when some of it could not be looked at; it is not counted.
  bool isWhole = true;
};

/// Counts, without following links; nothing counts as zero files. Any thread.
[[nodiscard]] TreeSize treeSizeOf(const Path& path);

}  // namespace quillon::platform
