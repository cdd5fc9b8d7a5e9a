#include "platform/files/tree_removal.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <map>
#include <string>
#include <vector>

#include "platform/core/descriptor.h"
#include "platform/files/open_folder.h"
#include "platform/files/removal_workers.h"
#include "platform/files/tree_walk.h"

namespace quillon::platform {
namespace {

/// The items' names, grouped by the paths of their folders, so that each folder is opened once.
using NamesByFolder = std::map<std::string, std::vector<std::string>>;

NamesByFolder namesByFolder(std::span<const std::string> paths) {
  NamesByFolder groups;
  for (const std::string& path : paths) {
    const std::size_t slash = path.rfind('/');
    const bool isNested = slash != std::string::npos;
    groups[isNested ? path.substr(0, slash) : ""].push_back(isNested ? path.substr(slash + 1)
                                                                     : path);
  }
  return groups;
}

void removeIn(int folder, const std::vector<std::string>& names, RemovalWorkers& workers) {
  std::size_t removedCount = 0;
  std::vector<std::string> folders = unlinkFiles(folder, {names, {}}, removedCount);
  if (folders.empty()) return;
  UniqueFd copy = openFolder(folder, ".", FolderUse::search);
  if (copy.isOpen()) workers.remove({std::move(copy), std::move(folders)});
}

void removeGroups(int base, std::span<const std::string> paths, RemovalWorkers& workers) {
  for (const auto& [path, names] : namesByFolder(paths)) {
    if (path.empty()) {
      removeIn(base, names, workers);
      continue;
    }
    const UniqueFd folder = openFolder(base, path.c_str(), FolderUse::search);
    if (folder.isOpen()) removeIn(folder.get(), names, workers);
  }
}

}  // namespace

Unlinked unlinkFile(int parent, const char* path) {
  if (::unlinkat(parent, path, 0) == 0) return Unlinked::gone;
  if (errno == ENOENT || errno == ENOTDIR) return Unlinked::wasMissing;
  // For a folder, Linux sets EISDIR. POSIX requires EPERM.
  return errno == EISDIR || errno == EPERM ? Unlinked::isFolder : Unlinked::failed;
}

void removeBelow(int base, std::span<const std::string> paths) {
  RemovalWorkers workers;
  const auto removeAll = [&] { removeGroups(base, paths, workers); };
  workers.attempt(removeAll);
  // Concurrent walks leave folders that another walk was still using, and folders for which no
  // descriptor or memory was free. A walk whose folder was moved away leaves the rest of its task.
  // The second walk runs alone.
  if (workers.finish()) workers.attempt(removeAll);
}

}  // namespace quillon::platform
