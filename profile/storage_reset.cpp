#include "platform/files/files.h"
#include "profile/hygiene.h"
#include "profile/storage_selection.h"

namespace quillon {

void resetGranularStorage(const std::string& userDataDir,
                          const std::map<std::string, bool>& granularStorageReset) {
  using platform::Folder;
  const std::vector<StoredItem> items = selectedItems(granularStorageReset);
  if (userDataDir.empty() || items.empty()) return;
  // The profile folder may be a link of the user's; its "Default" may not.
  const platform::Path root(userDataDir);
  const auto rootFolder = Folder::open(root, Folder::LastLink::follow);
  const auto defaultProfile = Folder::open(root / "Default", Folder::LastLink::refuse);
  for (const StoredItem& item : items) {
    const auto& base = item.base == StoredItem::Base::root ? rootFolder : defaultProfile;
    if (base) base->removeItem(item.path);
  }
}

}  // namespace quillon
