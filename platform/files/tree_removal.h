#pragma once

#include <span>
#include <string>

namespace quillon::platform {

enum class Unlinked { gone, wasMissing, isFolder, failed };

/// Removes a file or symbolic link. `path` is relative to the folder open as `parent` (or
/// AT_FDCWD).
Unlinked unlinkFile(int parent, const char* path);

/// Removes the items at these paths below the folder open as `base`: files, symbolic links (not
/// their targets), and folders with their contents. No symbolic link on the way is followed and no
/// other mount is entered. If an item cannot be removed or memory runs out, the others are removed
/// anyway. Needs a few free descriptors. Stack use does not depend on the depth of a tree. Large
/// trees are shared among threads, which have ended when this returns. Throws nothing.
void removeBelow(int base, std::span<const std::string> paths);

}  // namespace quillon::platform
