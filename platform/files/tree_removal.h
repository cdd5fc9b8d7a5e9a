#pragma once

#include <span>
#include <string>

namespace quillon::platform {

enum class Unlinked { gone, wasMissing, isFolder, failed };

/// Removes a file or link. `path` counts from the folder open as `parent` (or AT_FDCWD).
Unlinked unlinkFile(int parent, const char* path);

/// Removes the items at these paths below the folder open as `base`: files, links as such, folders
/// with everything below them. No link on the way is followed and no other mount entered. What
/// cannot be removed stays and the rest goes on, also if memory runs out. Needs a handful of free
/// descriptors and no stack per level, however deep a tree is. Large trees are shared among
/// threads, which have ended when this returns. Throws nothing.
void removeBelow(int base, std::span<const std::string> paths);

}  // namespace quillon::platform
