#pragma once

namespace quillon::platform::ui {

/// Has `handle` called when the connection to the display is lost; a window manager cuts it to
/// close a window by force. The handler must not return: the toolkit would end the process. Main
/// thread, once the toolkit is initialised.
void setLostDisplayHandler(void (*handle)());

/// For every message of the toolkit: before it ends the process for a Wayland display that is lost
/// it says so, and nothing else does. Calls the handler if that is so.
void noticeLostDisplay();

}  // namespace quillon::platform::ui
