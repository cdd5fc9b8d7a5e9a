#pragma once

#include <dirent.h>
#include <sys/types.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/core/descriptor.h"
#include "platform/files/removal_workers.h"

namespace quillon::platform {

/// Some of the names in a folder, as far as it tells which are folders.
struct Listing {
  std::vector<std::string> files;
  std::vector<std::string> folders;
  /// Whether none follow.
  bool isLast = true;
};

/// Removes the files of a listing of the open `folder`. Returns its folders, among them those that
/// were listed as files: not every file system lists entry types. Adds to `removedCount` how many
/// files it removed.
std::vector<std::string> unlinkFiles(int folder, Listing listing, std::size_t& removedCount);

/// Empties and removes folders and hands some to its workers. It reads a bounded number of names at
/// a time, removes them and reads on, so it uses one descriptor, one more for each folder on the
/// way down that it has not read to the end, and memory in proportion to the depth. The way back up
/// is the folder's "..", taken only when it is the folder that the walk came from: somebody may
/// move folders meanwhile. Throws if memory runs out; what is left then stays. One thread at a
/// time.
class TreeWalk {
 public:
  TreeWalk(RemovalTask task, RemovalWorkers& workers);

  void run();

 private:
  struct Close {
    void operator()(DIR* stream) const { ::closedir(stream); }
  };
  using Stream = std::unique_ptr<DIR, Close>;

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
    /// Where the names that were not read yet come from; none when all were.
    Stream rest;
    /// Since the folder was read from its beginning.
    std::size_t removedCount = 0;
    int passCount = 1;
  };

  static Stream openStream(int parent, const char* name);
  static std::optional<FileIdentity> identityOf(const UniqueFd& folder);
  void shareHalf(std::vector<std::string>& folders);
  /// Empties a folder of the current one and removes it, or goes down into it.
  void remove(const std::string& name);
  void removeEmptied(const std::string& name);
  void descend(Level level, bool hasMore);
  /// Reads the next names of a level that has some, removes the files and takes note of the
  /// folders. False when there are no more to be read.
  bool readOn(Level& level);
  /// False when the current folder is no longer where the walk came from.
  bool ascend();

  RemovalWorkers& workers_;
  UniqueFd current_;
  std::vector<Level> levels_;
  std::size_t readCount_ = 0;
};

}  // namespace quillon::platform
