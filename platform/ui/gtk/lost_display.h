#pragma once

namespace quillon::platform::ui {

/// Initializes the toolkit by calling `connect`. Returns false if `connect` does, or if the display
/// is lost while it runs. In the second case `connect` is left by a jump without unwinding, and the
/// partly initialized toolkit must not be used. After this function, `handle` is called when the
/// display is lost. A window manager also cuts the connection to close a window by force. `handle`
/// must not return: the toolkit would end the process. Main thread, once.
[[nodiscard]] bool connectWithDisplay(bool (*connect)(), void (*handle)());

/// Call it for every message of the toolkit. If a Wayland display is lost, the toolkit logs a
/// message and ends the process; it gives no other notice. This function calls the handler if the
/// display is lost. Does nothing on threads other than the main thread.
void noticeLostDisplay();

}  // namespace quillon::platform::ui
