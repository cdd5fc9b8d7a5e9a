#pragma once

#include <string_view>

/// The standard output of a program that prints. Main thread.
namespace quillon::platform {

/// Whether somebody sees it on a terminal.
[[nodiscard]] bool standardOutputIsTerminal();

/// Writes all of it; false when it could not be written. Blocks while the reader is slow.
[[nodiscard]] bool writeToStandardOutput(std::string_view text);

}  // namespace quillon::platform
