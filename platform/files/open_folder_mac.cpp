#include "platform/files/open_folder.h"

#include <fcntl.h>

namespace quillon::platform {

int folderFlags(FolderUse use) {
  return O_DIRECTORY | O_CLOEXEC | (use == FolderUse::search ? O_SEARCH : O_RDONLY);
}

// macOS does not mount a folder a second time on the same device, so comparing devices is enough.
UniqueFd openFolder(int parent, const char* path, FolderUse use) {
  return openFolderOfSameDevice(parent, path, use);
}

}  // namespace quillon::platform
