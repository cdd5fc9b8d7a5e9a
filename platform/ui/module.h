#pragma once

#include "platform/ui/backend.h"

namespace quillon::platform::ui {

/// Loads the module with the toolkit from "Contents/Frameworks" of the bundle. If the executable is
/// not in a bundle, loads it from the executable's folder. Returns null if the module is missing,
/// cannot be loaded or belongs to another build. The module stays loaded. Main thread.
[[nodiscard]] const Backend* loadBackendModule();

}  // namespace quillon::platform::ui
