#pragma once

#include <string_view>

/// The standard output of a program that prints. Main thread.
namespace quillon::platform {

/// Whether standard output is a terminal.
[[nodiscard]] bool standardOutputIsTerminal();

/// Writes the whole text. Returns false if it could not be written. Blocks while the reader is
/// slow.
[[nodiscard]] bool writeToStandardOutput(std::string_view text);

}  // namespace quillon::platform
