#pragma once

#include <span>
#include <string_view>

namespace quillon::platform {

enum class Unlinked { gone, isFolder, failed };

/// Removes a file or link; `gone` also when there was none. `path` counts from the folder open as
/// `parent` (or AT_FDCWD).
Unlinked unlinkFile(int parent, const char* path);

/// Removes the items at these paths below the folder open as `base`: files, links as such, folders
/// with everything below them. No link on the way is followed. Whatever cannot be removed stays
/// and the rest goes on. Needs a handful of free descriptors and no stack per level, however deep
/// a tree is. Large trees are shared among threads, which have ended when this returns.
void removeBelow(int base, std::span<const std::string_view> paths);

}  // namespace quillon::platform
