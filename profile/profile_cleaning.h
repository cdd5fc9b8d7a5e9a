#pragma once

#include <string>
#include <vector>

#include "platform/core/path.h"
#include "profile/profile_items.h"

namespace quillon {

/// Removes the items from the profile, without a backup, whatever stands under their names: a
/// folder with everything below it, a link as the link it is. Which goes first is left open: large
/// folders are emptied side by side. The profile folder itself may be a link and a mount point;
/// below it no link is followed and no mount entered, so a "Default" that is one keeps everything.
/// What cannot be removed stays, also if memory runs out, and the rest is still removed. Nothing
/// is reported. Nothing happens for an empty `userDataDir`. Any thread.
void removeFromProfile(const std::string& userDataDir, const ProfileItems& items);

/// The paths of what `removeFromProfile` would find to remove, by the same rules, except that it
/// does not know of mounts at the items themselves. Any thread.
[[nodiscard]] std::vector<platform::Path> findInProfile(const std::string& userDataDir,
                                                        const ProfileItems& items);

/// The links behind which `removeFromProfile` would find items if it followed any. Any thread.
[[nodiscard]] std::vector<platform::Path> findSkippedSymlinks(const std::string& userDataDir,
                                                              const ProfileItems& items);

/// Those of the system's mount points that `removeFromProfile` would have to remove or enter to
/// remove all. Their paths contain no links. Any thread.
[[nodiscard]] std::vector<platform::Path> findSkippedMounts(
    const std::vector<platform::Path>& mountPoints, const std::string& userDataDir,
    const ProfileItems& items);

}  // namespace quillon
