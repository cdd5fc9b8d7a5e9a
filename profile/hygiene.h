#pragma once

#include <map>
#include <string>

namespace quillon {

/// Drops the previous session's tabs: the session files of the profile's folder "Default", so that
/// the engine does not reopen them. Nothing happens for an empty `userDataDir`.
void clearPreviousTabs(const std::string& userDataDir);

/// Wipes the kinds of stored site data whose keys are true; "all" stands for every kind. Unknown
/// keys select nothing. Nothing happens for an empty `userDataDir`.
///
/// Both delete without a backup, whatever stands under a name of theirs, a folder with everything
/// below it; a link is removed as a link, and no link below the profile folder is followed. What
/// cannot be removed stays, and the rest is still removed. Nothing is reported. Any thread.
void resetGranularStorage(const std::string& userDataDir,
                          const std::map<std::string, bool>& granularStorageReset);

}  // namespace quillon
