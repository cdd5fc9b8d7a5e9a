#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

/// JSON as the launcher reads it: distinct kinds, objects in file order, strict text (RFC 8259).
/// Plain values without shared state: any thread may use its own.
namespace quillon::platform {

struct JsonMember;
struct JsonValue;

/// Whole numbers that fit keep their exact value; everything else is a double. "-0" reads as 0,
/// "-0.0" as the double -0.
using JsonNumber = std::variant<std::int64_t, std::uint64_t, double>;
using JsonArray = std::vector<JsonValue>;

/// Members in file order. Of several equal keys the last one counts, the others are gone.
class JsonObject {
 public:
  JsonObject() = default;
  explicit JsonObject(std::vector<JsonMember> members);

  [[nodiscard]] const std::vector<JsonMember>& members() const { return members_; }

  /// The value of a key (exact, case-sensitive); null when there is none. Logarithmic.
  [[nodiscard]] const JsonValue* find(std::string_view key) const;

  /// The value of a key when it is of the kind `Kind`; null otherwise.
  template <class Kind>
  [[nodiscard]] const Kind* find(std::string_view key) const;

  /// The string at a key; empty when there is none.
  [[nodiscard]] std::string text(std::string_view key) const;

 private:
  struct IndexEntry {
    std::size_t hash;
    std::size_t position;
  };

  void buildIndex();
  [[nodiscard]] bool precedes(const IndexEntry& left, const IndexEntry& right) const;
  [[nodiscard]] bool dropRepeatedKeys();

  std::vector<JsonMember> members_;
  /// Sorted by hash, then key: a lookup is a binary search, and keys made to collide cost no more
  /// than a sort by key does.
  std::vector<IndexEntry> index_;
};

/// One JSON value; `data` holds std::monostate for null. What is large lies outside: a file may
/// hold tens of millions of small values.
struct JsonValue {
  template <class Kind>
  using Outside = std::unique_ptr<Kind>;

  std::variant<std::monostate, bool, JsonNumber, Outside<std::string>, Outside<JsonArray>,
               Outside<JsonObject>>
      data;

  /// The value when it is of the kind `Kind`; null otherwise.
  template <class Kind>
  [[nodiscard]] const Kind* as() const {
    if constexpr (sizeof(Kind) > sizeof(JsonNumber)) {
      const auto* outside = std::get_if<Outside<Kind>>(&data);
      return outside == nullptr ? nullptr : outside->get();
    } else {
      return std::get_if<Kind>(&data);
    }
  }
};

struct JsonMember {
  std::string key;
  JsonValue value;
};

template <class Kind>
const Kind* JsonObject::find(std::string_view key) const {
  const JsonValue* value = find(key);
  return value == nullptr ? nullptr : value->as<Kind>();
}

/// Containers nested deeper than this make a text unreadable.
inline constexpr std::size_t maxJsonDepth = 512;

/// How much of a text is kept: all, or the object's own members with nothing in the arrays and
/// objects among them. Those are read all the same, but take no memory.
enum class JsonDepth { all, members };

/// Parses a text whose top level is an object. A UTF-8 byte-order mark at its start is accepted.
/// Nothing if the text is not valid JSON or not valid UTF-8, if its top level is another value, or
/// if it contains a container nested deeper than `maxJsonDepth` or a number outside the range of a
/// double (1e999).
[[nodiscard]] std::optional<JsonObject> parseJsonObject(std::string_view text,
                                                        JsonDepth depth = JsonDepth::all);

/// The content of a JSON string, without the quotes around it. `"`, `\`, tab, line feed and
/// carriage return become two characters, other characters below U+0020 \u and four lower-case
/// digits. Every other byte is unchanged.
[[nodiscard]] std::string jsonEscape(std::string_view text);

/// The value as JSON text without added whitespace, members in file order. Strings are escaped by
/// `jsonEscape`.
[[nodiscard]] std::string compactJsonText(const JsonValue& value);

/// Plain decimal text without an exponent; a double in the fewest digits that read back to it,
/// without a fraction when it has none (52.52, 100, 0.000001).
[[nodiscard]] std::string numberText(const JsonNumber& number);

/// The decimal text of the number's integer part (9222.9 gives 9222, -0.5 gives 0).
[[nodiscard]] std::string integerPartText(const JsonNumber& number);

/// Whether the number differs from zero; 0.5 does.
[[nodiscard]] bool isNonZero(const JsonNumber& number);

}  // namespace quillon::platform
