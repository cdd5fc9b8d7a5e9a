#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <new>

#include "platform/core/descriptor.h"
#include "platform/files/files.h"
#include "platform/files/open_folder.h"
#include "platform/files/tree_removal.h"

namespace quillon::platform {
namespace {

UniqueFd openFile(const Path& path, int flags) {
  return UniqueFd(retryInterrupted([&] { return ::open(path.cText(), flags | O_CLOEXEC); }));
}

std::optional<struct stat> statusOf(const Path& path) {
  struct stat status = {};
  if (::stat(path.cText(), &status) != 0) return std::nullopt;
  return status;
}

/// Requests one byte more than expected: a read of exactly the expected size is the end of the
/// file.
std::optional<std::string> readToEnd(int descriptor, std::size_t expectedBytes) {
  std::string content(expectedBytes + 1, '\0');
  std::size_t length = 0;
  while (length <= maxReadableBytes) {
    if (length == content.size()) content.resize(2 * length);
    char* const free = content.data() + length;
    const ssize_t got =
        retryInterrupted([&] { return ::read(descriptor, free, content.size() - length); });
    if (got < 0) return std::nullopt;
    length += static_cast<std::size_t>(got);
    if (got == 0 || length == expectedBytes) {
      content.resize(length);
      return content;
    }
  }
  return std::nullopt;
}

}  // namespace

bool exists(const Path& path) {
  return statusOf(path).has_value();
}

bool isFolder(const Path& path) {
  const auto status = statusOf(path);
  return status && S_ISDIR(status->st_mode);
}

bool isLink(const Path& path) {
  struct stat status = {};
  return ::lstat(path.cText(), &status) == 0 && S_ISLNK(status.st_mode);
}

bool isWritableFolder(const Path& folder) {
  return isFolder(folder) && ::access(folder.cText(), W_OK | X_OK) == 0;
}

bool isExecutableFile(const Path& path) {
  const auto status = statusOf(path);
  return status && S_ISREG(status->st_mode) && ::access(path.cText(), X_OK) == 0;
}

std::optional<std::string> readFile(const Path& path) {
  // Without O_NONBLOCK, opening a named pipe would wait for its other end.
  const UniqueFd file = openFile(path, O_RDONLY | O_NONBLOCK | O_NOCTTY);
  struct stat status = {};
  if (!file.isOpen() || ::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode)) {
    return std::nullopt;
  }
  if (static_cast<std::size_t>(status.st_size) > maxReadableBytes) return std::nullopt;
  try {
    return readToEnd(file.get(), static_cast<std::size_t>(status.st_size));
  } catch (const std::bad_alloc&) {
    return std::nullopt;
  }
}

bool createFolders(const Path& folder) {
  if (folder.empty() || isFolder(folder)) return true;
  const Path parent = folder.folder();
  if (!createFolders(parent)) return false;
  const UniqueFd opened = openFile(parent.empty() ? "." : parent, folderFlags(FolderUse::search));
  const std::string name(folder.name());
  // The umask may have removed permissions that the owner needs. If another process replaces the
  // new folder with a symbolic link, the link is not followed.
  const bool isMade =
      ::mkdirat(opened.get(), name.c_str(), ownersFolderMode) == 0 &&
      ::fchmodat(opened.get(), name.c_str(), ownersFolderMode, AT_SYMLINK_NOFOLLOW) == 0;
  return isMade || isFolder(folder);
}

bool removeItem(const Path& path) {
  const Unlinked outcome = unlinkFile(AT_FDCWD, path.cText());
  if (outcome != Unlinked::isFolder) return outcome != Unlinked::failed;
  const Path parent = path.folder();
  const auto folder = Folder::open(parent.empty() ? "." : parent);
  if (!folder) return false;
  folder->removeItems(std::array<std::string, 1>{std::string(path.name())});
  struct stat status = {};
  return ::lstat(path.cText(), &status) != 0 && errno == ENOENT;
}

std::optional<Folder> Folder::open(const Path& path) {
  UniqueFd descriptor = openFile(path, folderFlags(FolderUse::search));
  if (!descriptor.isOpen()) return std::nullopt;
  return Folder(std::move(descriptor));
}

void Folder::removeItems(std::span<const std::string> relativePaths) const {
  removeBelow(descriptor_.get(), relativePaths);
}

bool Folder::holds(const std::string& relativePath) const {
  const Path path(relativePath);
  const Path parent = path.folder();
  const UniqueFd folder =
      openFolder(descriptor_.get(), parent.empty() ? "." : parent.cText(), FolderUse::search);
  const std::string name(path.name());
  struct stat status = {};
  return folder.isOpen() &&
         ::fstatat(folder.get(), name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0;
}

}  // namespace quillon::platform
