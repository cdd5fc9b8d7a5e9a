#pragma once

namespace quillon::platform::ui {

/// Sets the launcher's icon, which is part of the module, for every window made after this call.
/// Main thread, with a display.
void setApplicationIcon();

}  // namespace quillon::platform::ui
