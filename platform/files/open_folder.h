#pragma once

#include "platform/core/descriptor.h"

namespace quillon::platform {

/// What a folder is opened for: to use files in it by their names, which takes no permission to
/// read it, or to list the names as well.
enum class FolderUse { search, list };

/// The flags of `open` for that.
int folderFlags(FolderUse use);

/// Opens the folder at the relative `path` below the open folder `parent`. Fails if the path leads
/// through a symbolic link or into another mount, also in its last place. Any thread.
UniqueFd openFolder(int parent, const char* path, FolderUse use);

/// The same by POSIX alone, name by name; tells mounts by their devices. A mount of a folder of the
/// same device is not noticed.
UniqueFd openFolderOfSameDevice(int parent, const char* path, FolderUse use);

}  // namespace quillon::platform
