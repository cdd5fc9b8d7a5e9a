#pragma once

#include <mutex>

namespace quillon::platform {

/// Locked while there is a pipe that does not close on exec yet: a Mac makes it and marks it in two
/// steps. Every spawn locks it too, so that no child of another thread is born between the two and
/// holds the pipe open. The toolkit starts no process from within ours.
[[nodiscard]] std::mutex& unmarkedPipes();

}  // namespace quillon::platform
