#pragma once

#include <concepts>
#include <string>
#include <string_view>
#include <utility>

namespace quillon::platform {

/// A file path. It holds only the text and splits it on request. (The standard library's path keeps
/// a list of its components, each on the heap. A launch would use more memory for such lists than
/// for all its other texts.) Bytes are not modified. A value: any thread.
class Path {
 public:
  Path() = default;
  /// Every type that converts implicitly to a text also converts implicitly to a path.
  template <std::convertible_to<std::string> Text>
  Path(Text text) : text_(std::move(text)) {}
  Path(std::string_view text) : text_(text) {}

  [[nodiscard]] const std::string& text() const { return text_; }
  /// For system calls. Valid as long as the path.
  [[nodiscard]] const char* cText() const { return text_.c_str(); }
  [[nodiscard]] bool empty() const { return text_.empty(); }

  /// What is before the last name. The root is its own folder. Empty if the path is only a name.
  [[nodiscard]] Path folder() const;
  /// The last name. Empty if the path ends with a slash.
  [[nodiscard]] std::string_view name() const;

  /// The relative path `below`, appended to this path.
  [[nodiscard]] Path operator/(std::string_view below) const;
  [[nodiscard]] bool operator==(const Path&) const = default;

 private:
  std::string text_;
};

/// The path from the root. If there is no current folder, the path as given.
[[nodiscard]] Path absolutePath(const Path& path);

/// The path from the root, with all symbolic links resolved. Empty if the item does not exist.
[[nodiscard]] Path resolvedPath(const Path& path);

}  // namespace quillon::platform
