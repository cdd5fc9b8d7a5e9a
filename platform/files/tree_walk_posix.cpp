#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <iterator>
#include <memory>
#include <string_view>
#include <utility>

#include "platform/files/tree_removal.h"
#include "platform/files/tree_walk.h"

namespace quillon::platform {
namespace {

using DirectoryStream = std::unique_ptr<DIR, decltype([](DIR* stream) { ::closedir(stream); })>;

DirectoryStream openStream(int parent, const char* name) {
  UniqueFd folder = openFolder(parent, name);
  DirectoryStream stream(folder.isOpen() ? ::fdopendir(folder.get()) : nullptr);
  if (stream) (void)folder.release();
  return stream;
}

/// Reads all names before anything is removed: removing while reading may skip entries on some
/// file systems.
Listing list(DIR* stream) {
  Listing listing;
  while (const dirent* entry = ::readdir(stream)) {
    const std::string_view name = entry->d_name;
    if (name == "." || name == "..") continue;
    (entry->d_type == DT_DIR ? listing.folders : listing.files).emplace_back(name);
  }
  return listing;
}

}  // namespace

UniqueFd openFolder(int parent, const char* name) {
  return UniqueFd(::openat(parent, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

std::vector<std::string> unlinkFiles(int folder, Listing listing) {
  for (std::string& file : listing.files) {
    if (unlinkFile(folder, file.c_str()) == Unlinked::isFolder) {
      listing.folders.push_back(std::move(file));
    }
  }
  return std::move(listing.folders);
}

TreeWalk::TreeWalk(RemovalShare share, RemovalCrew& crew)
    : crew_(crew), current_(std::move(share.parent)) {
  levels_.push_back({{}, {}, std::move(share.folders)});
}

void TreeWalk::run() {
  for (;;) {
    std::vector<std::string>& folders = levels_.back().folders;
    if (folders.empty()) {
      if (levels_.size() == 1) return;
      if (ascend()) continue;
      crew_.giveUpShare();
      return;
    }
    if (folders.size() > 1 && crew_.wantsShare(removedCount_)) shareHalf(folders);
    const std::string name = std::move(folders.back());
    folders.pop_back();
    remove(name);
  }
}

std::optional<TreeWalk::FileIdentity> TreeWalk::identityOf(const UniqueFd& folder) {
  struct stat status = {};
  if (::fstat(folder.get(), &status) != 0) return std::nullopt;
  return FileIdentity{status.st_dev, status.st_ino};
}

void TreeWalk::shareHalf(std::vector<std::string>& folders) {
  UniqueFd parent = openFolder(current_.get(), ".");
  // With no descriptor left, this walk goes on with all of them.
  if (!parent.isOpen()) return;
  const auto middle = folders.begin() + static_cast<std::ptrdiff_t>(folders.size() / 2);
  const auto end = folders.end();
  crew_.offer({std::move(parent), {std::move_iterator(middle), std::move_iterator(end)}});
  folders.erase(middle, end);
}

void TreeWalk::remove(const std::string& name) {
  if (const DirectoryStream stream = openStream(current_.get(), name.c_str())) {
    Listing listing = list(stream.get());
    removedCount_ += listing.files.size() + 1;
    std::vector<std::string> folders = unlinkFiles(::dirfd(stream.get()), std::move(listing));
    if (!folders.empty()) {
      descend(name, ::dirfd(stream.get()), std::move(folders));
      return;
    }
  }
  // One that could not be opened may be empty all the same.
  (void)::unlinkat(current_.get(), name.c_str(), AT_REMOVEDIR);
}

void TreeWalk::descend(const std::string& name, int folder, std::vector<std::string> folders) {
  // Fails in a folder that may be read but not searched: there would be no way back out of it.
  UniqueFd inside = openFolder(folder, ".");
  const auto parent = identityOf(current_);
  if (!inside.isOpen() || !parent) return;
  levels_.push_back({name, *parent, std::move(folders)});
  current_ = std::move(inside);
}

bool TreeWalk::ascend() {
  const Level level = std::move(levels_.back());
  levels_.pop_back();
  UniqueFd parent = openFolder(current_.get(), "..");
  if (!parent.isOpen() || identityOf(parent) != level.parent) return false;
  current_ = std::move(parent);
  (void)::unlinkat(current_.get(), level.name.c_str(), AT_REMOVEDIR);
  return true;
}

}  // namespace quillon::platform
