#include "platform/files/tree_walk.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <iterator>
#include <string_view>
#include <utility>

#include "platform/files/open_folder.h"
#include "platform/files/tree_removal.h"

namespace quillon::platform {
namespace {

/// The maximum number of a folder's names that are held in memory.
constexpr std::size_t maxListedNames = 1000;

/// The walk gives up a folder that another process keeps filling.
constexpr int maxPasses = 30;

Listing list(DIR* stream) {
  Listing listing;
  while (listing.files.size() + listing.folders.size() < maxListedNames) {
    const dirent* entry = ::readdir(stream);
    if (entry == nullptr) return listing;
    const std::string_view name = entry->d_name;
    if (name == "." || name == "..") continue;
    (entry->d_type == DT_DIR ? listing.folders : listing.files).emplace_back(name);
  }
  listing.isLast = false;
  return listing;
}

}  // namespace

std::vector<std::string> unlinkFiles(int folder, Listing listing, std::size_t& removedCount) {
  for (std::string& file : listing.files) {
    const Unlinked outcome = unlinkFile(folder, file.c_str());
    if (outcome == Unlinked::isFolder) listing.folders.push_back(std::move(file));
    if (outcome == Unlinked::gone) ++removedCount;
  }
  return std::move(listing.folders);
}

TreeWalk::TreeWalk(RemovalTask task, RemovalWorkers& workers)
    : workers_(workers), current_(std::move(task.parent)) {
  levels_.push_back({{}, {}, std::move(task.folders), {}});
}

void TreeWalk::run() {
  for (;;) {
    Level& level = levels_.back();
    if (!level.folders.empty()) {
      if (level.folders.size() > 1 && workers_.wantsTask(readCount_)) shareHalf(level.folders);
      const std::string name = std::move(level.folders.back());
      level.folders.pop_back();
      remove(name);
    } else if (level.rest) {
      if (!readOn(level)) level.rest.reset();
    } else if (levels_.size() == 1) {
      return;
    } else if (!ascend()) {
      workers_.abandonTask();
      return;
    }
  }
}

TreeWalk::Stream TreeWalk::openStream(int parent, const char* name) {
  UniqueFd folder = openFolder(parent, name, FolderUse::list);
  Stream stream(folder.isOpen() ? ::fdopendir(folder.get()) : nullptr);
  if (stream) (void)folder.release();
  return stream;
}

std::optional<TreeWalk::FileIdentity> TreeWalk::identityOf(const UniqueFd& folder) {
  struct stat status = {};
  if (::fstat(folder.get(), &status) != 0) return std::nullopt;
  return FileIdentity{status.st_dev, status.st_ino};
}

void TreeWalk::shareHalf(std::vector<std::string>& folders) {
  UniqueFd parent = openFolder(current_.get(), ".", FolderUse::search);
  // If no descriptor is free, this walk keeps all the folders.
  if (!parent.isOpen()) return;
  const auto middle = folders.begin() + static_cast<std::ptrdiff_t>(folders.size() / 2);
  const auto end = folders.end();
  workers_.offer({std::move(parent), {std::move_iterator(middle), std::move_iterator(end)}});
  folders.erase(middle, end);
}

void TreeWalk::remove(const std::string& name) {
  if (Stream stream = openStream(current_.get(), name.c_str())) {
    Level level{name, {}, {}, std::move(stream)};
    const bool hasMore = readOn(level);
    if (hasMore || !level.folders.empty()) {
      descend(std::move(level), hasMore);
      return;
    }
  }
  // A folder that could not be opened may be empty, so its removal is tried anyway.
  removeEmptied(name);
}

void TreeWalk::removeEmptied(const std::string& name) {
  if (::unlinkat(current_.get(), name.c_str(), AT_REMOVEDIR) == 0) ++levels_.back().removedCount;
}

void TreeWalk::descend(Level level, bool hasMore) {
  // Fails if the folder may be read but not searched: the walk could not return from it.
  UniqueFd inside = openFolder(::dirfd(level.rest.get()), ".", FolderUse::search);
  const auto parent = identityOf(current_);
  if (!inside.isOpen() || !parent) return;
  level.parent = *parent;
  if (!hasMore) level.rest.reset();
  levels_.push_back(std::move(level));
  current_ = std::move(inside);
}

bool TreeWalk::readOn(Level& level) {
  // On some file systems, removing while reading may skip names.
  const bool maySkip = level.removedCount > 0;
  Listing listing = list(level.rest.get());
  const bool isLast = listing.isLast;
  readCount_ += listing.files.size() + 1;
  level.folders = unlinkFiles(::dirfd(level.rest.get()), std::move(listing), level.removedCount);
  if (!isLast) return true;
  if (!maySkip || ++level.passCount > maxPasses) return false;
  ::rewinddir(level.rest.get());
  level.removedCount = 0;
  return true;
}

bool TreeWalk::ascend() {
  const Level level = std::move(levels_.back());
  levels_.pop_back();
  UniqueFd parent = openFolder(current_.get(), "..", FolderUse::search);
  if (!parent.isOpen() || identityOf(parent) != level.parent) return false;
  current_ = std::move(parent);
  removeEmptied(level.name);
  return true;
}

}  // namespace quillon::platform
