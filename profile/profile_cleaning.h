#pragma once

#include <string>
#include <vector>

#include "platform/core/path.h"
#include "profile/profile_items.h"

namespace quillon {

/// Removes the items from the profile, without a backup, whatever stands under their names: a
/// folder with everything below it, a link as the link it is. Which goes first is left open: large
/// folders are emptied side by side. The profile folder itself may be a link; below it none is
/// followed, so a linked "Default" keeps everything. What cannot be removed stays, and the rest is
/// still removed. Nothing is reported. Nothing happens for an empty `userDataDir`. Any thread.
void removeFromProfile(const std::string& userDataDir, const ProfileItems& items);

/// The paths of what `removeFromProfile` would find to remove, by the same rules. Any thread.
[[nodiscard]] std::vector<platform::Path> findInProfile(const std::string& userDataDir,
                                                        const ProfileItems& items);

/// The links behind which `removeFromProfile` would find items if it followed any. Any thread.
[[nodiscard]] std::vector<platform::Path> findLinksInTheWay(const std::string& userDataDir,
                                                            const ProfileItems& items);

}  // namespace quillon
