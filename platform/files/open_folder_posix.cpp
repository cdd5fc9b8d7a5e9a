#include "platform/files/open_folder.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <string>
#include <string_view>

#include "platform/core/descriptor.h"

namespace quillon::platform {
namespace {

UniqueFd openName(int parent, const std::string& name, FolderUse use) {
  const int flags = folderFlags(use) | O_NOFOLLOW;
  return UniqueFd(retryInterrupted([&] { return ::openat(parent, name.c_str(), flags); }));
}

bool haveSameDevice(int one, int other) {
  struct stat first = {};
  struct stat second = {};
  return ::fstat(one, &first) == 0 && ::fstat(other, &second) == 0 && first.st_dev == second.st_dev;
}

}  // namespace

UniqueFd openFolderOfSameDevice(int parent, const char* path, FolderUse use) {
  const std::string_view names = path;
  const std::size_t slash = names.find('/');
  const bool isLast = slash == std::string_view::npos;
  UniqueFd folder =
      openName(parent, std::string(names.substr(0, slash)), isLast ? use : FolderUse::search);
  if (!folder.isOpen() || !haveSameDevice(parent, folder.get())) return {};
  return isLast ? std::move(folder) : openFolderOfSameDevice(folder.get(), path + slash + 1, use);
}

}  // namespace quillon::platform
