#pragma once

#include "platform/core/path.h"

namespace quillon {

/// The engine executable: what QUILLON_ENGINE_BIN names, if it is set and not empty, else the one
/// inside the engine's own bundle. A relative path counts from the current folder. Nothing is
/// checked: whether it can be run shows when it is to be started.
[[nodiscard]] platform::Path locateEngineBinary(const platform::Path& engineAppURL);

}  // namespace quillon
