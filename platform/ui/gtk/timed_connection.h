#pragma once

#include <functional>
#include <memory>
#include <optional>

namespace quillon::platform::ui {

/// A connection of any kind, closed when its last owner is destroyed. Null if the connection
/// failed.
using Connection = std::shared_ptr<void>;

/// Connects on a helper thread with a timeout of five seconds. The toolkit's own connect blocks
/// indefinitely if the server accepts the connection but never replies. Returns nothing after the
/// timeout; the thread, with all signals blocked, then keeps running. Main thread.
[[nodiscard]] std::optional<Connection> connectWithTimeout(std::function<Connection()> connect);

}  // namespace quillon::platform::ui
