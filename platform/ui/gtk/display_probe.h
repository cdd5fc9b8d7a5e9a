#pragma once

#include "platform/ui/gtk/timed_connection.h"

namespace quillon::platform::ui {

/// Connects with the display that the toolkit will choose. Null when there is none; nothing when
/// it does not answer within five seconds. The connection is for keeping until the toolkit has its
/// own: some displays start anew when the last one ends. Main thread.
[[nodiscard]] std::optional<Connection> probeDisplay();

}  // namespace quillon::platform::ui
