#pragma once

#include "platform/core/path.h"

namespace quillon {

/// The engine executable: the value of QUILLON_ENGINE_BIN if it is set and not empty, otherwise the
/// executable in the engine's bundle. A relative path is relative to the current folder. The file
/// is not checked here, but when it is started.
[[nodiscard]] platform::Path locateEngineBinary(const platform::Path& engineAppURL);

}  // namespace quillon
