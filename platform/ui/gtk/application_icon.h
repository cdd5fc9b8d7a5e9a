#pragma once

namespace quillon::platform::ui {

/// Gives every window made from now on the launcher's icon, which is a part of the module. Main
/// thread, with a display.
void setApplicationIcon();

}  // namespace quillon::platform::ui
