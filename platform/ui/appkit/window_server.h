#pragma once

namespace quillon::platform::ui {

/// Whether the process belongs to a session with a screen. False for a network login and for a
/// daemon: there the toolkit ends a process that requests a window.
[[nodiscard]] bool hasWindowServer();

/// Makes `handle` be called when the connection to the window server is lost. It is called on the
/// main thread, from its queue. Main thread, once.
void setLostWindowServerHandler(void (*handle)());

}  // namespace quillon::platform::ui
