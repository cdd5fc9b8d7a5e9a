#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Text by the rules of Unicode. Every string is UTF-8; views returned point into the argument.
/// "Character" means a user-perceived character, an extended grapheme cluster (UAX #29). Bytes
/// that are not UTF-8 never fail: each counts as a character of its own. Any thread.
namespace quillon::platform {

/// Whether the bytes are well-formed UTF-8: no overlong forms, no surrogates, nothing cut off.
[[nodiscard]] bool isValidUtf8(std::string_view text);

/// Each byte that is not UTF-8, and each NUL, replaced by U+FFFD.
[[nodiscard]] std::string withoutInvalidBytes(std::string_view text);

/// The text up to its first NUL: what is left of it where C strings are taken.
[[nodiscard]] std::string_view truncatedAtNul(std::string_view text);

/// The number of characters, counting no further than `limit`.
[[nodiscard]] std::size_t characterCount(std::string_view text, std::size_t limit);

/// The first `count` characters; all of them when there are fewer.
[[nodiscard]] std::string_view firstCharacters(std::string_view text, std::size_t count);

/// Without space separators (category Zs) and tabs at both ends. Line breaks stay.
[[nodiscard]] std::string_view trimBlanks(std::string_view text);

/// Without leading characters of the property White_Space, line breaks included.
[[nodiscard]] std::string_view skipWhitespace(std::string_view text);

/// What stands before the first line break: U+000A to U+000D, U+0085, U+2028 or U+2029.
[[nodiscard]] std::string_view firstLine(std::string_view text);

/// Full upper-casing: a letter may become several ("ß" gives "SS").
[[nodiscard]] std::string upperCased(std::string_view text);

/// Lower-casing, code point by code point.
[[nodiscard]] std::string lowerCased(std::string_view text);

}  // namespace quillon::platform
