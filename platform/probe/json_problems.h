#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>

/// What `parseJsonObject` does not say about a text. Any thread.
namespace quillon::platform {

/// Why a text is not a readable JSON object, and where.
struct JsonFault {
  /// `malformed` includes invalid UTF-8 and numbers outside the range of a double.
  enum class Kind { malformed, notAnObject, tooDeep };

  Kind kind = Kind::malformed;
  /// Both start at 1, the column in bytes. 0 if the position is unknown.
  std::size_t line = 0;
  std::size_t column = 0;
};

struct JsonProblems {
  using Keys = std::set<std::string>;

  /// Nothing if the text is a readable object.
  std::optional<JsonFault> fault;
  /// The keys that the object contains more than once.
  Keys repeatedKeys;
  /// The same for the objects in it, by their key. Only objects that repeat a key are here.
  std::map<std::string, Keys> repeatedKeysWithin;
};

/// Parses the text by the rules of `parseJsonObject` without keeping its values. `repeatedKeys` and
/// `repeatedKeysWithin` are complete only if there is no fault.
[[nodiscard]] JsonProblems findJsonProblems(std::string_view text);

}  // namespace quillon::platform
