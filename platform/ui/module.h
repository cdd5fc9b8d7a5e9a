#pragma once

#include "platform/ui/backend.h"

namespace quillon::platform::ui {

/// Loads the module with the toolkit from "Contents/Frameworks" of the bundle, or from beside an
/// executable outside one. Null when it is missing, cannot be loaded or is of another build. It
/// stays loaded. Main thread.
[[nodiscard]] const Backend* loadBackendModule();

}  // namespace quillon::platform::ui
