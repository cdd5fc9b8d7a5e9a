#include "platform/probe/mount_points.h"

#include <algorithm>
#include <charconv>
#include <string>
#include <string_view>

#include "platform/files/files.h"

namespace quillon::platform {
namespace {

/// The text up to the separator. Both are removed from `rest`.
std::string_view takeUntil(char separator, std::string_view& rest) {
  const std::string_view taken = rest.substr(0, rest.find(separator));
  rest.remove_prefix(std::min(taken.size() + 1, rest.size()));
  return taken;
}

/// Spaces, tabs, line feeds and backslashes are encoded as a backslash and three octal digits.
std::string unescaped(std::string_view text) {
  std::string plain(takeUntil('\\', text));
  while (!text.empty()) {
    int byte = 0;
    (void)std::from_chars(text.data(), text.data() + std::min<std::size_t>(3, text.size()), byte,
                          8);
    text.remove_prefix(std::min<std::size_t>(3, text.size()));
    plain.push_back(static_cast<char>(byte));
    plain += takeUntil('\\', text);
  }
  return plain;
}

}  // namespace

std::vector<Path> mountPoints() {
  const std::string text = readFile("/proc/self/mountinfo").value_or("");
  std::vector<Path> points;
  for (std::string_view rest = text; !rest.empty();) {
    std::string_view line = takeUntil('\n', rest);
    // The fields are: ID, parent ID, device, root, mount point; proc(5).
    for (int field = 0; field < 4; ++field) (void)takeUntil(' ', line);
    points.emplace_back(unescaped(takeUntil(' ', line)));
  }
  return points;
}

}  // namespace quillon::platform
