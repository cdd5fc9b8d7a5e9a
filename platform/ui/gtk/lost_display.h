#pragma once

namespace quillon::platform::ui {

/// Has `handle` called when the connection to an X display is lost; a window manager cuts it to
/// close a window by force. The handler must not return: Xlib would end the process. Without effect
/// on displays of another kind. Main thread, once the toolkit is initialised.
void setLostDisplayHandler(void (*handle)());

}  // namespace quillon::platform::ui
