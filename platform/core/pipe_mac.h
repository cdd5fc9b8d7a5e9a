#pragma once

#include <mutex>

namespace quillon::platform {

/// A lock that is held while a new pipe does not close on exec yet: macOS creates a pipe and sets
/// that flag in two steps. Every spawn takes the lock, too. Otherwise a child that another thread
/// starts between the two steps would keep the pipe open. The toolkit starts no processes within
/// this process.
[[nodiscard]] std::mutex& unmarkedPipes();

}  // namespace quillon::platform
