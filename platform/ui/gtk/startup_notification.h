#pragma once

#include <string>

namespace quillon::platform::ui {

/// Removes the session's startup notification ID from the live environment and returns it, empty if
/// there is none. The toolkit would remove it while it connects, when a thread left behind by
/// `connectWithTimeout` may read the environment.
[[nodiscard]] std::string takeStartupId();

/// Gives a nonempty ID to the toolkit, which reports the startup as complete when it shows a
/// window. Main thread, after the toolkit has connected.
void passStartupId(const std::string& id);

}  // namespace quillon::platform::ui
