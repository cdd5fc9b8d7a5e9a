#include "profile/profile_cleaning.h"

#include "platform/files/files.h"

namespace quillon {
namespace {

using platform::Folder;

void removeFrom(const platform::Path& folder, Folder::LastLink lastLink, ProfileItem::Base base,
                const ProfileItems& items) {
  std::vector<std::string_view> paths;
  for (const ProfileItem& item : items) {
    if (item.base == base) paths.push_back(item.path);
  }
  if (paths.empty()) return;
  if (const auto open = Folder::open(folder, lastLink)) open->removeItems(paths);
}

}  // namespace

void removeFromProfile(const std::string& userDataDir, const ProfileItems& items) {
  if (userDataDir.empty()) return;
  const platform::Path root(userDataDir);
  removeFrom(root, Folder::LastLink::follow, ProfileItem::Base::root, items);
  removeFrom(root / "Default", Folder::LastLink::refuse, ProfileItem::Base::defaultProfile, items);
}

}  // namespace quillon
