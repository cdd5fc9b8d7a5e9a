#include "platform/text/text.h"

#include <utf8proc.h>

#include <array>

namespace quillon::platform {
namespace {

/// One code point and its number of bytes. An invalid byte is a replacement character.
struct CodePoint {
  utf8proc_int32_t value = 0xFFFD;
  std::size_t length = 1;
  bool valid = false;
};

CodePoint firstCodePoint(std::string_view text) {
  utf8proc_int32_t value = 0;
  const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(text.data());
  const auto length = utf8proc_iterate(bytes, static_cast<utf8proc_ssize_t>(text.size()), &value);
  if (length <= 0) return {};
  return {value, static_cast<std::size_t>(length), true};
}

CodePoint lastCodePoint(std::string_view text) {
  constexpr std::size_t longest = 4;
  for (std::size_t length = 1; length <= longest && length <= text.size(); ++length) {
    const CodePoint candidate = firstCodePoint(text.substr(text.size() - length));
    if (candidate.valid && candidate.length == length) return candidate;
  }
  return {};
}

bool isBlank(utf8proc_int32_t codePoint) {
  return codePoint == '\t' || utf8proc_category(codePoint) == UTF8PROC_CATEGORY_ZS;
}

bool isLineBreak(utf8proc_int32_t codePoint) {
  return (codePoint >= 0x0A && codePoint <= 0x0D) || codePoint == 0x85 || codePoint == 0x2028 ||
         codePoint == 0x2029;
}

void append(std::string& out, utf8proc_int32_t codePoint) {
  std::array<utf8proc_uint8_t, 4> bytes{};
  const auto length = utf8proc_encode_char(codePoint, bytes.data());
  out.append(reinterpret_cast<const char*>(bytes.data()), static_cast<std::size_t>(length));
}

/// The one-to-many mappings of small letters are those of case folding ("ß" folds to "ss").
void appendUpperCased(std::string& out, utf8proc_int32_t codePoint) {
  if (utf8proc_category(codePoint) != UTF8PROC_CATEGORY_LL) {
    append(out, utf8proc_toupper(codePoint));
    return;
  }
  std::array<utf8proc_int32_t, 4> folded{};
  const auto count =
      utf8proc_decompose_char(codePoint, folded.data(), folded.size(), UTF8PROC_CASEFOLD, nullptr);
  for (std::size_t i = 0; static_cast<utf8proc_ssize_t>(i) < count; ++i) {
    append(out, utf8proc_toupper(folded.at(i)));
  }
}

/// The bytes and the number of the first `limit` characters.
struct Walk {
  std::size_t bytes = 0;
  std::size_t characters = 0;
};

Walk walkCharacters(std::string_view text, std::size_t limit) {
  Walk walk;
  utf8proc_int32_t breakState = 0;
  utf8proc_int32_t previous = 0;
  while (walk.bytes < text.size()) {
    const CodePoint next = firstCodePoint(text.substr(walk.bytes));
    const bool startsCharacter =
        walk.bytes == 0 || !next.valid ||
        utf8proc_grapheme_break_stateful(previous, next.value, &breakState);
    if (startsCharacter && walk.characters == limit) break;
    if (startsCharacter) ++walk.characters;
    walk.bytes += next.length;
    previous = next.value;
  }
  return walk;
}

}  // namespace

bool isValidUtf8(std::string_view text) {
  while (!text.empty()) {
    const CodePoint next = firstCodePoint(text);
    if (!next.valid) return false;
    text.remove_prefix(next.length);
  }
  return true;
}

std::string withoutInvalidBytes(std::string_view text) {
  std::string valid;
  while (!text.empty()) {
    const CodePoint next = firstCodePoint(text);
    append(valid, next.value == 0 ? CodePoint().value : next.value);
    text.remove_prefix(next.length);
  }
  return valid;
}

std::string_view truncatedAtNul(std::string_view text) {
  return text.substr(0, text.find('\0'));
}

std::size_t characterCount(std::string_view text, std::size_t limit) {
  return walkCharacters(text, limit).characters;
}

std::string_view firstCharacters(std::string_view text, std::size_t count) {
  return text.substr(0, walkCharacters(text, count).bytes);
}

std::string_view trimBlanks(std::string_view text) {
  while (!text.empty() && isBlank(firstCodePoint(text).value)) {
    text.remove_prefix(firstCodePoint(text).length);
  }
  while (!text.empty() && isBlank(lastCodePoint(text).value)) {
    text.remove_suffix(lastCodePoint(text).length);
  }
  return text;
}

std::string_view skipWhitespace(std::string_view text) {
  while (!text.empty()) {
    const CodePoint next = firstCodePoint(text);
    if (!isBlank(next.value) && !isLineBreak(next.value)) break;
    text.remove_prefix(next.length);
  }
  return text;
}

std::string_view firstLine(std::string_view text) {
  std::size_t length = 0;
  while (length < text.size()) {
    const CodePoint next = firstCodePoint(text.substr(length));
    if (isLineBreak(next.value)) break;
    length += next.length;
  }
  return text.substr(0, length);
}

std::string upperCased(std::string_view text) {
  std::string upper;
  while (!text.empty()) {
    const CodePoint next = firstCodePoint(text);
    appendUpperCased(upper, next.value);
    text.remove_prefix(next.length);
  }
  return upper;
}

std::string lowerCased(std::string_view text) {
  std::string lower;
  while (!text.empty()) {
    const CodePoint next = firstCodePoint(text);
    append(lower, utf8proc_tolower(next.value));
    text.remove_prefix(next.length);
  }
  return lower;
}

}  // namespace quillon::platform
