#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Changes that every toolkit makes to a text before it shows the text. Pure; any thread.
namespace quillon::platform::ui {

/// The limit is in bytes. One character can have very many code points, and the time to shape them
/// grows with the square of their number.
inline constexpr std::size_t longestLabelText = 1024;

/// Returns valid UTF-8 without NUL: each invalid byte is replaced by U+FFFD. The middle of a text
/// that is longer than `longest` bytes is removed.
[[nodiscard]] std::string displayText(std::string_view text,
                                      std::size_t longest = longestLabelText);

/// Returns the text up to its eighth line break. If the text is longer, a line with "…" follows.
/// This keeps an alert from being higher than the screen.
[[nodiscard]] std::string firstParagraphs(std::string_view text);

}  // namespace quillon::platform::ui
