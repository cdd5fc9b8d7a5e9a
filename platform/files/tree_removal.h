#pragma once

namespace quillon::platform {

enum class Unlinked { gone, isFolder, failed };

/// Removes a file or link; `gone` also when there was none. `path` counts from the folder open as
/// `parent` (or AT_FDCWD).
Unlinked unlinkFile(int parent, const char* path);

/// Removes the item `name` in the folder open as `parent`: a file, a link as such, or a folder
/// with everything below it. Whatever cannot be removed stays and the rest goes on. Needs three
/// free descriptors and no stack per level, however deep the tree is. True when nothing of that
/// name is left.
bool removeInFolder(int parent, const char* name);

}  // namespace quillon::platform
