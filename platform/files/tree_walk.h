#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <vector>

#include "platform/core/descriptor.h"
#include "platform/files/removal_crew.h"

namespace quillon::platform {

/// Opens the folder `name` in the folder open as `parent`, unless it is a link.
UniqueFd openFolder(int parent, const char* name);

/// The names in a folder, as far as it tells which are folders.
struct Listing {
  std::vector<std::string> files;
  std::vector<std::string> folders;
};

/// Removes the files of a listing of the open `folder`. Returns its folders, among them those that
/// were listed as files: not every file system lists entry types.
std::vector<std::string> unlinkFiles(int folder, Listing listing);

/// Empties and removes folders with one of them open at a time, and hands some to its crew. The
/// way back up is the folder's "..", taken only when it is the folder that the walk came from:
/// somebody may move folders meanwhile. One thread at a time.
class TreeWalk {
 public:
  TreeWalk(RemovalShare share, RemovalCrew& crew);

  void run();

 private:
  struct FileIdentity {
    dev_t device;
    ino_t inode;

    bool operator==(const FileIdentity&) const = default;
  };

  /// A folder on the way down to the current one and which folders are left to be removed in it.
  /// The uppermost has no name: the walk ends there.
  struct Level {
    std::string name;
    FileIdentity parent;
    std::vector<std::string> folders;
  };

  static std::optional<FileIdentity> identityOf(const UniqueFd& folder);
  void shareHalf(std::vector<std::string>& folders);
  /// Empties a folder of the current one and removes it, or goes down into it.
  void remove(const std::string& name);
  void descend(const std::string& name, int folder, std::vector<std::string> folders);
  /// False when the current folder is no longer where the walk came from.
  bool ascend();

  RemovalCrew& crew_;
  UniqueFd current_;
  std::vector<Level> levels_;
  std::size_t removedCount_ = 0;
};

}  // namespace quillon::platform
