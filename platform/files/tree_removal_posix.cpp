#include "platform/files/tree_removal.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <map>
#include <string>
#include <vector>

#include "platform/core/descriptor.h"
#include "platform/files/removal_crew.h"
#include "platform/files/tree_walk.h"

namespace quillon::platform {
namespace {

/// The items' names by the paths of the folders they stand in, so that each is opened once.
using NamesByFolder = std::map<std::string_view, std::vector<std::string>>;

NamesByFolder namesByFolder(std::span<const std::string_view> paths) {
  NamesByFolder groups;
  for (const std::string_view path : paths) {
    const std::size_t slash = path.rfind('/');
    const bool isNested = slash != std::string_view::npos;
    groups[isNested ? path.substr(0, slash) : ""].emplace_back(isNested ? path.substr(slash + 1)
                                                                        : path);
  }
  return groups;
}

/// Opens a folder name by name, so that a link refuses wherever it stands. `path` is not empty.
UniqueFd openBelow(int base, std::string_view path) {
  const std::size_t slash = path.find('/');
  UniqueFd folder = openFolder(base, std::string(path.substr(0, slash)).c_str());
  if (slash == std::string_view::npos || !folder.isOpen()) return folder;
  return openBelow(folder.get(), path.substr(slash + 1));
}

void removeIn(int folder, const std::vector<std::string>& names, RemovalCrew& crew) {
  std::vector<std::string> folders = unlinkFiles(folder, {names, {}});
  if (folders.empty()) return;
  UniqueFd copy = openFolder(folder, ".");
  if (copy.isOpen()) TreeWalk({std::move(copy), std::move(folders)}, crew).run();
}

void removeGroups(int base, const NamesByFolder& groups, RemovalCrew& crew) {
  for (const auto& [path, names] : groups) {
    if (path.empty()) {
      removeIn(base, names, crew);
    } else if (const UniqueFd folder = openBelow(base, path); folder.isOpen()) {
      removeIn(folder.get(), names, crew);
    }
  }
}

}  // namespace

Unlinked unlinkFile(int parent, const char* path) {
  if (::unlinkat(parent, path, 0) == 0 || errno == ENOENT || errno == ENOTDIR) {
    return Unlinked::gone;
  }
  // A folder is refused with EISDIR on Linux, with EPERM where POSIX is followed to the letter.
  return errno == EISDIR || errno == EPERM ? Unlinked::isFolder : Unlinked::failed;
}

void removeBelow(int base, std::span<const std::string_view> paths) {
  const NamesByFolder groups = namesByFolder(paths);
  RemovalCrew crew;
  removeGroups(base, groups, crew);
  // Walks side by side leave the folders that another one was still busy below, and those that no
  // descriptor was free for; a walk whose folder was moved away leaves all it still had to do. The
  // last walk is alone.
  if (crew.disband()) removeGroups(base, groups, crew);
}

}  // namespace quillon::platform
