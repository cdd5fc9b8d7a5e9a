#include "profile/profile_cleaning.h"

#include <algorithm>
#include <array>

#include "platform/files/files.h"

namespace quillon {
namespace {

using platform::Folder;

/// A folder that items count from, and whether it may be a link.
struct BaseFolder {
  platform::Path path;
  Folder::LastLink lastLink = Folder::LastLink::refuse;
  ProfileItem::Base base = ProfileItem::Base::root;
};

std::array<BaseFolder, 2> baseFolders(const std::string& userDataDir) {
  const platform::Path root(userDataDir);
  return {{{root, Folder::LastLink::follow, ProfileItem::Base::root},
           {root / "Default", Folder::LastLink::refuse, ProfileItem::Base::defaultProfile}}};
}

std::vector<std::string_view> pathsBelow(const BaseFolder& folder, const ProfileItems& items) {
  std::vector<std::string_view> paths;
  for (const ProfileItem& item : items) {
    if (item.base == folder.base) paths.push_back(item.path);
  }
  return paths;
}

/// The items of each base whose folder can be opened, given to `use`; nothing for no profile.
template <class Use>
void withOpenFolders(const std::string& userDataDir, const ProfileItems& items, Use use) {
  if (userDataDir.empty()) return;
  for (const BaseFolder& folder : baseFolders(userDataDir)) {
    const auto paths = pathsBelow(folder, items);
    if (paths.empty()) continue;
    if (const auto open = Folder::open(folder.path, folder.lastLink)) use(folder, *open, paths);
  }
}

}  // namespace

void removeFromProfile(const std::string& userDataDir, const ProfileItems& items) {
  withOpenFolders(userDataDir, items,
                  [](const BaseFolder&, const Folder& open,
                     const std::vector<std::string_view>& paths) { open.removeItems(paths); });
}

std::vector<platform::Path> findInProfile(const std::string& userDataDir,
                                          const ProfileItems& items) {
  std::vector<platform::Path> found;
  withOpenFolders(userDataDir, items,
                  [&](const BaseFolder& folder, const Folder& open,
                      const std::vector<std::string_view>& paths) {
                    for (const std::string_view path : paths) {
                      if (open.holds(path)) found.push_back(folder.path / path);
                    }
                  });
  return found;
}

std::vector<platform::Path> findLinksInTheWay(const std::string& userDataDir,
                                              const ProfileItems& items) {
  std::vector<platform::Path> links;
  for (const BaseFolder& base : baseFolders(userDataDir)) {
    for (const std::string_view path : pathsBelow(base, items)) {
      platform::Path folder = (base.path / path).folder();
      for (; folder.text().size() > userDataDir.size(); folder = folder.folder()) {
        const bool isNew = std::find(links.begin(), links.end(), folder) == links.end();
        if (isNew && platform::isLink(folder)) links.push_back(folder);
      }
    }
  }
  return links;
}

}  // namespace quillon
