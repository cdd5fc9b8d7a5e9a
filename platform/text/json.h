#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

/// A strict JSON parser (RFC 8259) whose objects keep the order of the text, and JSON text. No
/// shared state; any thread.
namespace quillon::platform {

struct JsonMember;
struct JsonValue;

/// An integer that fits keeps its exact value. Every other number is a double. "-0" is the integer
/// 0, "-0.0" the double -0.
using JsonNumber = std::variant<std::int64_t, std::uint64_t, double>;
using JsonArray = std::vector<JsonValue>;

/// Members in the order of the text. If a key is repeated, only its last member is kept.
class JsonObject {
 public:
  JsonObject() = default;
  explicit JsonObject(std::vector<JsonMember> members);

  [[nodiscard]] const std::vector<JsonMember>& members() const { return members_; }

  /// The value of a key (case-sensitive); null if the object does not contain it. Logarithmic time.
  [[nodiscard]] const JsonValue* find(std::string_view key) const;

  /// The value of a key if it has the type `Type`; null otherwise.
  template <class Type>
  [[nodiscard]] const Type* find(std::string_view key) const;

  /// The value of a key if it is a string; empty otherwise.
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
  /// Sorted by hash, then key. `find` is a binary search, and keys with equal hashes are no slower
  /// than a sort by key.
  std::vector<IndexEntry> index_;
};

/// One JSON value; std::monostate is null. Strings, arrays and objects are on the heap, so that
/// tens of millions of small values fit into memory.
struct JsonValue {
  template <class Type>
  using OnHeap = std::unique_ptr<Type>;

  std::variant<std::monostate, bool, JsonNumber, OnHeap<std::string>, OnHeap<JsonArray>,
               OnHeap<JsonObject>>
      data;

  /// The value if it has the type `Type`; null otherwise.
  template <class Type>
  [[nodiscard]] const Type* as() const {
    if constexpr (sizeof(Type) > sizeof(JsonNumber)) {
      const auto* onHeap = std::get_if<OnHeap<Type>>(&data);
      return onHeap == nullptr ? nullptr : onHeap->get();
    } else {
      return std::get_if<Type>(&data);
    }
  }
};

struct JsonMember {
  std::string key;
  JsonValue value;
};

template <class Type>
const Type* JsonObject::find(std::string_view key) const {
  const JsonValue* value = find(key);
  return value == nullptr ? nullptr : value->as<Type>();
}

/// A text with deeper nested arrays and objects is not parsed.
inline constexpr std::size_t maxJsonDepth = 512;

/// `all` keeps the whole text. `members` keeps the object's own members; arrays and objects among
/// them are checked, but empty.
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

/// The value as JSON text without spaces, members in the order of the text. Strings are escaped by
/// `jsonEscape`.
[[nodiscard]] std::string compactJsonText(const JsonValue& value);

/// Decimal text without an exponent. A double has the fewest digits that give the same double when
/// parsed, and a fraction only if needed (52.52, 100, 0.000001).
[[nodiscard]] std::string numberText(const JsonNumber& number);

/// The decimal text of the integer part (9222.9 gives 9222, -0.5 gives 0).
[[nodiscard]] std::string integerPartText(const JsonNumber& number);

/// Whether the number differs from zero; 0.5 does.
[[nodiscard]] bool isNonZero(const JsonNumber& number);

}  // namespace quillon::platform
