#pragma once

#include <optional>
#include <span>
#include <string>

#include "platform/core/descriptor.h"
#include "platform/core/path.h"

/// Files and folders. Failures are the return value; nothing but want of memory is thrown.
/// Relative paths count from the current folder. No shared state: any thread.
namespace quillon::platform {

/// What stands at the end of the path, links followed; a folder counts like a file.
[[nodiscard]] bool exists(const Path& path);

/// Whether a folder (links followed) stands there.
[[nodiscard]] bool isFolder(const Path& path);

/// Whether a link stands there, be it to nothing.
[[nodiscard]] bool isLink(const Path& path);

/// Whether this process may create files in the folder.
[[nodiscard]] bool isWritableFolder(const Path& folder);

/// Whether a regular file (links followed) stands there that this process may execute.
[[nodiscard]] bool isExecutableFile(const Path& path);

/// More than this is not read: no file that the launcher is meant to read comes near.
inline constexpr std::size_t maxReadableBytes = std::size_t{256} << 20;

/// The whole content. Nothing when it is missing, unreadable, not a regular file (a pipe or a
/// device might never end) or longer than `maxReadableBytes`.
[[nodiscard]] std::optional<std::string> readFile(const Path& path);

/// What the launcher creates may hold a proxy's password: its owner alone may use it.
inline constexpr unsigned ownersFileMode = 0600;
inline constexpr unsigned ownersFolderMode = 0700;

/// Creates the folder and its missing parents for their owner alone, whatever the umask; a folder
/// that stands keeps its mode. True when it is a folder afterwards.
bool createFolders(const Path& folder);

/// Removes what stands at `path`, whatever it is: a folder with all below it, a link as the link
/// it is. Other mounts below it stay as they are. Goes on past what cannot be removed. True when
/// nothing stands there afterwards, so also when nothing did.
bool removeItem(const Path& path);

/// An open folder that items are removed from. The path that opened it may be renamed meanwhile;
/// the folder stays the one that was opened.
class Folder {
 public:
  /// Links are followed, and it may be a mount point. Nothing when there is no such folder or it
  /// may not be searched; it need not be readable.
  static std::optional<Folder> open(const Path& path);

  /// Removes the items at paths below the folder, by the rules of `removeItem`. A path that leads
  /// through a symbolic link or into another mount is ignored. While much is to be removed, up to
  /// seven further threads take part; they handle no signals and have ended at the return. If
  /// memory runs out, items stay; nothing is thrown.
  void removeItems(std::span<const std::string> relativePaths) const;

  /// Whether there is anything of that path below the folder, be it a link to nothing, where
  /// `removeItems` would look for it.
  [[nodiscard]] bool holds(const std::string& relativePath) const;

 private:
  explicit Folder(UniqueFd descriptor) : descriptor_(std::move(descriptor)) {}

  UniqueFd descriptor_;
};

}  // namespace quillon::platform
