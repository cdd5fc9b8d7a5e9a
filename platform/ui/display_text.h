#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// What every toolkit does to a text before it shows it. Pure; any thread.
namespace quillon::platform::ui {

/// One character may have very many code points, and the time to shape them grows with the square
/// of their number.
inline constexpr std::size_t longestLabelText = 1024;

/// Valid UTF-8 without NUL, each offending byte replaced by U+FFFD, and without the middle of what
/// is longer than `longest` bytes.
[[nodiscard]] std::string displayText(std::string_view text,
                                      std::size_t longest = longestLabelText);

/// The text up to its eighth line break, and "…" in a line below when there was more than that: an
/// alert must not be higher than the screen.
[[nodiscard]] std::string firstParagraphs(std::string_view text);

}  // namespace quillon::platform::ui
