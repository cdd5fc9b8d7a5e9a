#pragma once

#include <optional>
#include <span>
#include <string_view>
#include <vector>

/// What a process finds in its environment. Any thread.
namespace quillon::platform {

/// Environment entries ("NAME=value"; malformed ones stay as they are), a view of the strings that
/// the process was started with.
class Environment {
 public:
  explicit Environment(char* const* entries);

  /// The value of the first entry of that name.
  [[nodiscard]] std::optional<std::string_view> value(std::string_view name) const;
  /// The same but for every entry of these names.
  [[nodiscard]] Environment without(std::span<const std::string_view> names) const;
  /// As the exec family takes it, ending with a null pointer.
  [[nodiscard]] char* const* entries() const { return entries_.data(); }

 private:
  std::vector<char*> entries_;
};

/// The environment as it was at the first call, which main() makes before anything could change it.
/// Children get this one: a UI toolkit removes variables from the live one.
[[nodiscard]] const Environment& startEnvironment();

/// The C library's own list as it is now, ending with a null pointer; may itself be null.
[[nodiscard]] char* const* liveEnvironment();

}  // namespace quillon::platform
