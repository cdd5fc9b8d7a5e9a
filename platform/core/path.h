#pragma once

#include <concepts>
#include <string>
#include <string_view>
#include <utility>

namespace quillon::platform {

/// Where something stands among the files: its text, taken apart only when somebody asks. (The
/// standard library's path keeps a list of its parts, each on the heap; a launch would spend more
/// on such lists than on all its other texts.) Bytes are kept as they are. A value: any thread.
class Path {
 public:
  Path() = default;
  /// What turns into a text by itself is a path to whoever takes one.
  template <std::convertible_to<std::string> Text>
  Path(Text text) : text_(std::move(text)) {}
  Path(std::string_view text) : text_(text) {}

  [[nodiscard]] const std::string& text() const { return text_; }
  /// For the system's calls, as long as the path lives.
  [[nodiscard]] const char* cText() const { return text_.c_str(); }
  [[nodiscard]] bool empty() const { return text_.empty(); }

  /// What stands before the last name; the root's is the root. Empty for a name alone.
  [[nodiscard]] Path folder() const;
  /// The last name; empty behind a slash at the end.
  [[nodiscard]] std::string_view name() const;

  /// What stands at a relative path below this one.
  [[nodiscard]] Path operator/(std::string_view below) const;
  [[nodiscard]] bool operator==(const Path&) const = default;

 private:
  std::string text_;
};

/// The path from the root; as it is when there is no current folder to count from.
[[nodiscard]] Path absolutePath(const Path& path);

/// The path from the root without a link in it; empty when nothing stands there.
[[nodiscard]] Path resolvedPath(const Path& path);

}  // namespace quillon::platform
