#pragma once

namespace quillon::platform::ui {

/// Whether the process belongs to a session with a screen: false for a login over the network and
/// for a daemon. The toolkit would end a process that asks it for a window there.
[[nodiscard]] bool hasWindowServer();

/// Has `handle` called on the main thread, from its queue, when the window server is gone. Main
/// thread, once.
void setLostWindowServerHandler(void (*handle)());

}  // namespace quillon::platform::ui
