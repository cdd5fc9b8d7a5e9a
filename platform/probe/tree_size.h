#pragma once

#include <cstdint>

#include "platform/core/path.h"

namespace quillon::platform {

/// The number and size of the files in a folder and all folders below it, or of a single file.
struct TreeSize {
  /// The number of items that are not folders.
  std::uint64_t files = 0;
  std::uint64_t bytes = 0;
  /// False if some items could not be accessed. They are not counted.
  bool isWhole = true;
};

/// Counts without following symbolic links. The result for a missing path is zero files. Any
/// thread.
[[nodiscard]] TreeSize treeSizeOf(const Path& path);

}  // namespace quillon::platform
