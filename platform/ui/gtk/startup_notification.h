#pragma once

#include <string>

namespace quillon::platform::ui {

/// Removes the session's startup notification ID from the live environment and returns it. Returns
/// an empty text if there is no ID. The toolkit would remove it while it connects, when a thread
/// left running by `connectWithTimeout` may read the environment.
[[nodiscard]] std::string takeStartupId();

/// Passes a nonempty ID to the toolkit, which reports the startup as complete when it shows a
/// window. Main thread, after the toolkit has connected.
void passStartupId(const std::string& id);

}  // namespace quillon::platform::ui
