#include "platform/files/open_folder.h"

#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>

#include "platform/core/descriptor.h"

namespace quillon::platform {

int folderFlags(FolderUse use) {
  return O_DIRECTORY | O_CLOEXEC | (use == FolderUse::search ? O_PATH : O_RDONLY);
}

UniqueFd openFolder(int parent, const char* path, FolderUse use) {
  struct open_how how = {};
  how.flags = static_cast<unsigned>(folderFlags(use));
  how.resolve = RESOLVE_NO_SYMLINKS | RESOLVE_NO_XDEV;
  const long descriptor =
      retryInterrupted([&] { return ::syscall(SYS_openat2, parent, path, &how, sizeof(how)); });
  // Kernels before 5.6 do not have the call, and some sandboxes reject it.
  const bool isUnknown = descriptor == -1 && (errno == ENOSYS || errno == EPERM);
  return isUnknown ? openFolderOfSameDevice(parent, path, use)
                   : UniqueFd(static_cast<int>(descriptor));
}

}  // namespace quillon::platform
