#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

/// What is removed from a profile before the engine starts. Pure; any thread.
namespace quillon {

/// Something that the engine stores in a profile, and the folder its path counts from.
struct ProfileItem {
  /// The profile folder itself, or its "Default", where the engine keeps the user's data.
  enum class Base { root, defaultProfile };

  Base base;
  std::string_view path;
};

using ProfileItems = std::vector<ProfileItem>;

/// Adds what holds the tabs of the previous session, so that the engine does not reopen them.
void clearPreviousTabs(ProfileItems& removals);

/// The keys of the kinds of stored site data, "all" among them.
[[nodiscard]] std::vector<std::string_view> granularResetKeys();

/// Adds the kinds of stored site data whose keys are true; "all" stands for every kind. Unknown
/// keys select nothing.
void resetGranularStorage(ProfileItems& removals,
                          const std::map<std::string, bool>& granularStorageReset);

}  // namespace quillon
