#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

/// What is removed from a profile before the engine starts. Pure; any thread.
namespace quillon {

/// A file or folder of a profile, and the folder that its path is relative to.
struct ProfileItem {
  /// The profile folder itself, or its "Default", where the engine keeps the user's data.
  enum class Base { root, defaultProfile };

  Base base;
  std::string_view path;
};

using ProfileItems = std::vector<ProfileItem>;

/// Adds the files with the previous session's tabs, so that the engine does not reopen them.
void clearPreviousTabs(ProfileItems& removals);

/// The keys of all kinds of stored site data, including "all".
[[nodiscard]] std::vector<std::string_view> granularResetKeys();

/// Adds the kinds of stored site data whose keys are true; "all" means every kind. Unknown keys
/// have no effect.
void resetGranularStorage(ProfileItems& removals,
                          const std::map<std::string, bool>& granularStorageReset);

}  // namespace quillon
