#pragma once

#include <cstdint>
#include <string>

/// Processes other than this one and its children. Any thread.
namespace quillon::platform {

/// Whether a process with that ID exists. Its owner can be any user.
[[nodiscard]] bool isRunning(std::int64_t processId);

/// This machine's name in the network. Empty if the system does not report it.
[[nodiscard]] std::string hostName();

}  // namespace quillon::platform
