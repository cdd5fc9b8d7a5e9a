#include "platform/files/open_folder.h"

#include <fcntl.h>

namespace quillon::platform {

int folderFlags(FolderUse use) {
  return O_DIRECTORY | O_CLOEXEC | (use == FolderUse::search ? O_SEARCH : O_RDONLY);
}

// A Mac does not mount a folder in a second place of the same device.
UniqueFd openFolder(int parent, const char* path, FolderUse use) {
  return openFolderOfSameDevice(parent, path, use);
}

}  // namespace quillon::platform
