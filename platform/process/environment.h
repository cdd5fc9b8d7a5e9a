#pragma once

#include <optional>
#include <span>
#include <string_view>
#include <vector>

/// The environment of the process. Any thread.
namespace quillon::platform {

/// Environment entries ("NAME=value"). Malformed entries are kept. The entries refer to the strings
/// that the process was started with.
class Environment {
 public:
  explicit Environment(char* const* entries);

  /// The value of the first entry of that name.
  [[nodiscard]] std::optional<std::string_view> value(std::string_view name) const;
  /// The environment without the entries of these names.
  [[nodiscard]] Environment without(std::span<const std::string_view> names) const;
  /// In the format of the exec family, ending with a null pointer.
  [[nodiscard]] char* const* entries() const { return entries_.data(); }

 private:
  std::vector<char*> entries_;
};

/// The environment at the time of the first call, which main() makes before any code can change it.
/// Children get this environment: a UI toolkit removes variables from the live one.
[[nodiscard]] const Environment& startEnvironment();

/// The C library's current list of entries, ending with a null pointer. May itself be null.
[[nodiscard]] char* const* liveEnvironment();

}  // namespace quillon::platform
