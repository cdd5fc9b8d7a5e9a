#include <pwd.h>

#include <array>

#include "platform/host/host.h"

namespace quillon::platform {

std::optional<Path> homeFolderOf(uid_t user) {
  passwd entry{};
  passwd* found = nullptr;
  std::array<char, 16384> strings{};
  ::getpwuid_r(user, &entry, strings.data(), strings.size(), &found);
  if (found == nullptr || entry.pw_dir == nullptr) return std::nullopt;
  return entry.pw_dir;
}

}  // namespace quillon::platform
