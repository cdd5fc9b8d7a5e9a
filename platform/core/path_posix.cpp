#include "platform/core/path.h"

#include <unistd.h>

#include <array>
#include <climits>
#include <cstdlib>

namespace quillon::platform {

Path Path::folder() const {
  std::size_t end = text_.rfind('/');
  if (end == std::string::npos) return {};
  while (end > 0 && text_[end - 1] == '/') --end;
  return std::string_view(text_).substr(0, end == 0 ? 1 : end);
}

std::string_view Path::name() const {
  return std::string_view(text_).substr(text_.rfind('/') + 1);
}

Path Path::operator/(std::string_view below) const {
  std::string joined;
  joined.reserve(text_.size() + 1 + below.size());
  joined += text_;
  if (!joined.empty() && joined.back() != '/') joined += '/';
  joined += below;
  return joined;
}

Path absolutePath(const Path& path) {
  std::array<char, PATH_MAX> current{};
  if (path.text().starts_with('/') || ::getcwd(current.data(), current.size()) == nullptr) {
    return path;
  }
  return Path(current.data()) / path.text();
}

Path resolvedPath(const Path& path) {
  std::array<char, PATH_MAX> resolved{};
  return ::realpath(path.cText(), resolved.data()) == nullptr ? Path() : Path(resolved.data());
}

}  // namespace quillon::platform
