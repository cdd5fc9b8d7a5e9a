#pragma once

#include "platform/ui/gtk/timed_connection.h"

namespace quillon::platform::ui {

/// Connects to the display that the toolkit will choose. Returns null if there is no display, and
/// nothing if it does not reply within five seconds. The caller keeps the connection until the
/// toolkit has its own: some displays restart when their last connection is closed. Main thread.
[[nodiscard]] std::optional<Connection> probeDisplay();

}  // namespace quillon::platform::ui
