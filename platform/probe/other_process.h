#pragma once

#include <cstdint>
#include <string>

/// Processes that are none of ours. Any thread.
namespace quillon::platform {

/// Whether a process of that number is there, whoever it belongs to.
[[nodiscard]] bool isRunning(std::int64_t processId);

/// This machine's name in the network; empty when the system does not tell.
[[nodiscard]] std::string hostName();

}  // namespace quillon::platform
