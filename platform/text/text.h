#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Unicode text in UTF-8. Returned views point into the argument. A character is a user-perceived
/// character: an extended grapheme cluster (UAX #29). Each invalid byte is one character. No
/// function fails; any thread.
namespace quillon::platform {

/// Whether the bytes are valid UTF-8. Overlong forms, surrogates and truncated characters are not.
[[nodiscard]] bool isValidUtf8(std::string_view text);

/// The text with each invalid byte and each NUL replaced by U+FFFD.
[[nodiscard]] std::string withoutInvalidBytes(std::string_view text);

/// The text up to its first NUL: what is left of it where C strings are taken.
[[nodiscard]] std::string_view truncatedAtNul(std::string_view text);

/// The number of characters, or `limit` if there are more.
[[nodiscard]] std::size_t characterCount(std::string_view text, std::size_t limit);

/// The first `count` characters; the whole text if it has fewer.
[[nodiscard]] std::string_view firstCharacters(std::string_view text, std::size_t count);

/// The text without spaces (category Zs) and tabs at both ends. Line breaks are kept.
[[nodiscard]] std::string_view trimBlanks(std::string_view text);

/// The text without leading characters of the property White_Space, which includes line breaks.
[[nodiscard]] std::string_view skipWhitespace(std::string_view text);

/// The text before the first line break: U+000A to U+000D, U+0085, U+2028 or U+2029.
[[nodiscard]] std::string_view firstLine(std::string_view text);

/// The text in upper case. One letter can become several ("ß" gives "SS").
[[nodiscard]] std::string upperCased(std::string_view text);

/// The text in lower case. Each code point is converted on its own.
[[nodiscard]] std::string lowerCased(std::string_view text);

}  // namespace quillon::platform
