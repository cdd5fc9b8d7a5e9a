#pragma once

namespace quillon::platform::ui {

/// Initializes the toolkit by `connect`. Returns false if `connect` does or if the display is lost
/// while it runs: `connect` is then left by a jump without unwinding, and the partly initialized
/// toolkit must not be used. After this function `handle` is called when the display is lost; a
/// window manager cuts the connection to close a window by force. `handle` must not return: the
/// toolkit would end the process. Main thread, once.
[[nodiscard]] bool connectWithDisplay(bool (*connect)(), void (*handle)());

/// To be called for every message of the toolkit. If a Wayland display is lost, the toolkit logs a
/// message and ends the process; there is no other notice. Calls the handler if the display is
/// lost. Does nothing on threads other than the main thread.
void noticeLostDisplay();

}  // namespace quillon::platform::ui
