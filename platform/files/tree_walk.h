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

/// Some of the names in a folder. Entries whose type the file system does not report are in
/// `files`.
struct Listing {
  std::vector<std::string> files;
  std::vector<std::string> folders;
  /// Whether this is the last listing of the folder.
  bool isLast = true;
};

/// Removes the files of a listing of the open `folder`. Returns its folders, including those that
/// were listed as files: not every file system reports entry types. Adds the number of removed
/// files to `removedCount`.
std::vector<std::string> unlinkFiles(int folder, Listing listing, std::size_t& removedCount);

/// Empties and removes folders and hands some of them to its workers. It reads a limited number of
/// names, removes them, and reads the next. It uses one descriptor, one more for each parent folder
/// that it has not read to the end, and memory in proportion to the depth. It goes back up through
/// "..", after checking that this is the folder it came from: another process may move folders
/// during the walk. Throws if memory runs out; the remaining items are then left. One thread at a
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

  /// A folder on the path to the current one, and the folders that are still to be removed in it.
  /// The top level has no name: the walk ends there.
  struct Level {
    std::string name;
    FileIdentity parent;
    std::vector<std::string> folders;
    /// The stream of the names that were not read yet. Null if all were read.
    Stream rest;
    /// Since the stream was last at the folder's beginning.
    std::size_t removedCount = 0;
    int passCount = 1;
  };

  static Stream openStream(int parent, const char* name);
  static std::optional<FileIdentity> identityOf(const UniqueFd& folder);
  void shareHalf(std::vector<std::string>& folders);
  /// Empties and removes a folder inside the current one, or descends into it.
  void remove(const std::string& name);
  void removeEmptied(const std::string& name);
  void descend(Level level, bool hasMore);
  /// Reads the next names of a level whose stream is open, removes the files and stores the
  /// folders. Returns false if there are no more names.
  bool readOn(Level& level);
  /// Returns false if the current folder was moved since the walk entered it.
  bool ascend();

  RemovalWorkers& workers_;
  UniqueFd current_;
  std::vector<Level> levels_;
  std::size_t readCount_ = 0;
};

}  // namespace quillon::platform
