#pragma once

namespace quillon::platform::ui {

/// Has the toolkit made by `connect`, and `handle` called when the connection to the display is
/// lost later on; a window manager cuts it to close a window by force. The handler must not return:
/// the toolkit would end the process. False when `connect` says so or the display is lost
/// meanwhile: `connect` is then left where it is, nothing is unwound, and the toolkit, half made,
/// must not be used. Main thread, once.
[[nodiscard]] bool connectWithDisplay(bool (*connect)(), void (*handle)());

/// For every message of the toolkit: before it ends the process for a Wayland display that is lost
/// it says so, and nothing else does. Calls the handler if that is so.
void noticeLostDisplay();

}  // namespace quillon::platform::ui
