#include "platform/files/tree_removal.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files/descriptor.h"

namespace quillon::platform {
namespace {

using DirectoryStream = std::unique_ptr<DIR, decltype([](DIR* stream) { ::closedir(stream); })>;

struct FileIdentity {
  dev_t device;
  ino_t inode;

  bool operator==(const FileIdentity&) const = default;
};

std::optional<FileIdentity> identityOf(int descriptor) {
  struct stat status {};
  if (::fstat(descriptor, &status) != 0) return std::nullopt;
  return FileIdentity{status.st_dev, status.st_ino};
}

/// The names in a folder; read whole before anything is removed, since removing while reading may
/// skip entries on some file systems.
struct Listing {
  std::vector<std::string> files;
  std::vector<std::string> folders;
};

/// Nothing for a folder that may not be read and searched.
std::optional<Listing> list(int folder) {
  // A stream of its own: it closes its descriptor, and `folder` is still needed.
  UniqueFd copy(::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!copy.isOpen()) return std::nullopt;
  const DirectoryStream stream(::fdopendir(copy.get()));
  if (!stream) return std::nullopt;
  (void)copy.release();
  Listing listing;
  while (const dirent* entry = ::readdir(stream.get())) {
    const std::string_view name = entry->d_name;
    if (name == "." || name == "..") continue;
    (entry->d_type == DT_DIR ? listing.folders : listing.files).emplace_back(name);
  }
  return listing;
}

/// One folder on the way down to the current one, and what is still to be removed in it.
struct Level {
  std::string name;
  FileIdentity parent;
  std::vector<std::string> folders;
};

/// Walks a tree with one folder open at a time. The way back up is the folder's "..", taken only
/// when it is the folder that the walk came from: somebody may move folders meanwhile.
class TreeWalk {
 public:
  TreeWalk(int parent, const char* name) : current_(::openat(parent, ".", openFlags)) {
    if (current_.isOpen()) descend(name);
  }

  /// Empties the folder of the uppermost level and removes it.
  void run() {
    while (!levels_.empty()) {
      std::vector<std::string>& folders = levels_.back().folders;
      if (folders.empty()) {
        if (!ascend()) return;
        continue;
      }
      const std::string name = std::move(folders.back());
      folders.pop_back();
      descend(name.c_str());
    }
  }

 private:
  static constexpr int openFlags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;

  void descend(const char* name) {
    UniqueFd folder(::openat(current_.get(), name, openFlags));
    auto listing = folder.isOpen() ? list(folder.get()) : std::nullopt;
    const auto parent = identityOf(current_.get());
    if (!listing || !parent) {
      // It may be empty all the same. A folder that may be read but not searched must not be
      // entered: there would be no way back out.
      (void)::unlinkat(current_.get(), name, AT_REMOVEDIR);
      return;
    }
    current_ = std::move(folder);
    for (std::string& file : listing->files) {
      // File systems without entry types list folders as files.
      if (unlinkFile(current_.get(), file.c_str()) == Unlinked::isFolder) {
        listing->folders.push_back(std::move(file));
      }
    }
    levels_.push_back({name, *parent, std::move(listing->folders)});
  }

  bool ascend() {
    const Level level = std::move(levels_.back());
    levels_.pop_back();
    UniqueFd parent(::openat(current_.get(), "..", openFlags));
    if (!parent.isOpen() || identityOf(parent.get()) != level.parent) return false;
    current_ = std::move(parent);
    (void)::unlinkat(current_.get(), level.name.c_str(), AT_REMOVEDIR);
    return true;
  }

  UniqueFd current_;
  std::vector<Level> levels_;
};

bool isAbsent(int parent, const char* name) {
  struct stat status {};
  return ::fstatat(parent, name, &status, AT_SYMLINK_NOFOLLOW) != 0 && errno == ENOENT;
}

}  // namespace

Unlinked unlinkFile(int parent, const char* path) {
  if (::unlinkat(parent, path, 0) == 0 || errno == ENOENT || errno == ENOTDIR) {
    return Unlinked::gone;
  }
  // A folder is refused with EISDIR on Linux, with EPERM where POSIX is followed to the letter.
  return errno == EISDIR || errno == EPERM ? Unlinked::isFolder : Unlinked::failed;
}

bool removeInFolder(int parent, const char* name) {
  const Unlinked outcome = unlinkFile(parent, name);
  if (outcome != Unlinked::isFolder) return outcome == Unlinked::gone;
  TreeWalk(parent, name).run();
  return isAbsent(parent, name);
}

}  // namespace quillon::platform
