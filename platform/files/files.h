#pragma once

#include <optional>
#include <span>
#include <string>

#include "platform/core/descriptor.h"
#include "platform/core/path.h"

/// Files and folders. Failures are reported by the return value. The only exception thrown is that
/// for insufficient memory. Relative paths start at the current folder. No shared state: any
/// thread.
namespace quillon::platform {

/// Whether the path leads to a file or folder. Symbolic links are followed.
[[nodiscard]] bool exists(const Path& path);

/// Whether the path leads to a folder. Symbolic links are followed.
[[nodiscard]] bool isFolder(const Path& path);

/// Whether the item is a symbolic link. Its target need not exist.
[[nodiscard]] bool isLink(const Path& path);

/// Whether this process may create files in the folder.
[[nodiscard]] bool isWritableFolder(const Path& folder);

/// Whether the path leads to a regular file that this process may execute. Symbolic links are
/// followed.
[[nodiscard]] bool isExecutableFile(const Path& path);

/// The maximum size of a file that is read. The files that the launcher reads are much smaller.
inline constexpr std::size_t maxReadableBytes = std::size_t{256} << 20;

/// The whole content. Nothing if the file is missing, unreadable, not a regular file (a pipe or a
/// device might never end) or longer than `maxReadableBytes`.
[[nodiscard]] std::optional<std::string> readFile(const Path& path);

/// Files that the launcher creates may contain a proxy's password: only the owner may use them.
inline constexpr unsigned ownersFileMode = 0600;
inline constexpr unsigned ownersFolderMode = 0700;

/// Creates the folder and its missing parents. Only their owner may use them, regardless of the
/// umask. An existing folder keeps its mode. Returns true if the folder exists afterwards.
bool createFolders(const Path& folder);

/// Removes the item at `path`: a file, a folder with its contents, or a symbolic link (not its
/// target). Other mounts below it are not modified. If an item cannot be removed, the others are
/// removed anyway. Returns true if `path` does not exist afterwards, also if it did not exist
/// before.
bool removeItem(const Path& path);

/// An open folder that items are removed from. If its path is renamed afterwards, the object still
/// refers to the folder that was opened.
class Folder {
 public:
  /// Opens a folder. Symbolic links are followed, and the folder may be a mount point. Nothing if
  /// it does not exist or may not be searched. It need not be readable.
  static std::optional<Folder> open(const Path& path);

  /// Removes the items at paths below the folder, by the rules of `removeItem`. A path that leads
  /// through a symbolic link or into another mount is ignored. For large trees up to seven further
  /// threads are used. They handle no signals and have ended when this returns. If memory runs out,
  /// some items are left; nothing is thrown.
  void removeItems(std::span<const std::string> relativePaths) const;

  /// Whether an item of that path exists below the folder, by the rules of `removeItems`. A
  /// symbolic link without a target exists.
  [[nodiscard]] bool holds(const std::string& relativePath) const;

 private:
  explicit Folder(UniqueFd descriptor) : descriptor_(std::move(descriptor)) {}

  UniqueFd descriptor_;
};

}  // namespace quillon::platform
