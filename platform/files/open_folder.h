#pragma once

#include "platform/core/descriptor.h"

namespace quillon::platform {

/// The purpose of opening a folder: to use files in it by their names, which does not need
/// permission to read the folder, or also to list the names.
enum class FolderUse { search, list };

/// The flags of `open` for this use.
int folderFlags(FolderUse use);

/// Opens the folder at the relative `path` below the open folder `parent`. Fails if a component of
/// the path, including the last, is a symbolic link or another mount. Any thread.
UniqueFd openFolder(int parent, const char* path, FolderUse use);

/// Does the same with POSIX calls only, one name at a time. It recognises mounts by their devices,
/// so it does not notice a mount of a folder of the same device.
UniqueFd openFolderOfSameDevice(int parent, const char* path, FolderUse use);

}  // namespace quillon::platform
