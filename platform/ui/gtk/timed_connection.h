#pragma once

#include <functional>
#include <memory>
#include <optional>

namespace quillon::platform::ui {

/// A connection of any kind, closed with its last owner; null when there is nobody to connect with.
using Connection = std::shared_ptr<void>;

/// Connects on a thread of its own and waits five seconds for that: the toolkit itself would wait
/// for ever for whoever takes a connection and never says a word. Nothing without an answer in
/// time; the thread, with all signals blocked, is then left behind. Main thread.
[[nodiscard]] std::optional<Connection> connectWithTimeout(std::function<Connection()> connect);

}  // namespace quillon::platform::ui
