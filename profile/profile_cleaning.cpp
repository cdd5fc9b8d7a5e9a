#include "profile/profile_cleaning.h"

#include <algorithm>
#include <new>

#include "platform/files/files.h"

namespace quillon {
namespace {

using platform::Path;

/// Relative to the profile folder.
std::vector<std::string> pathsOf(const ProfileItems& items) {
  std::vector<std::string> paths;
  for (const ProfileItem& item : items) {
    const bool isInDefault = item.base == ProfileItem::Base::defaultProfile;
    paths.push_back((isInDefault ? "Default/" : "") + std::string(item.path));
  }
  return paths;
}

bool isAtOrBelow(const Path& path, const Path& folder) {
  return (path.text() + '/').starts_with(folder.text() + '/');
}

template <class Range, class Value>
bool contains(const Range& range, const Value& value) {
  return std::find(range.begin(), range.end(), value) != range.end();
}

}  // namespace

void removeFromProfile(const std::string& userDataDir, const ProfileItems& items) {
  try {
    if (const auto profile = platform::Folder::open(userDataDir)) {
      profile->removeItems(pathsOf(items));
    }
  } catch (const std::bad_alloc&) {
    // The items stay.
  }
}

std::vector<Path> findInProfile(const std::string& userDataDir, const ProfileItems& items) {
  std::vector<Path> found;
  const auto profile = platform::Folder::open(userDataDir);
  if (!profile) return found;
  for (const std::string& path : pathsOf(items)) {
    if (profile->holds(path)) found.push_back(Path(userDataDir) / path);
  }
  return found;
}

std::vector<Path> findSkippedSymlinks(const std::string& userDataDir, const ProfileItems& items) {
  std::vector<Path> links;
  for (const std::string& path : pathsOf(items)) {
    for (Path below = Path(path).folder(); !below.empty(); below = below.folder()) {
      Path folder = Path(userDataDir) / below.text();
      if (!contains(links, folder) && platform::isLink(folder)) links.push_back(std::move(folder));
    }
  }
  return links;
}

std::vector<Path> findSkippedMounts(const std::vector<Path>& mountPoints,
                                    const std::string& userDataDir, const ProfileItems& items) {
  std::vector<Path> found;
  const Path profile = platform::resolvedPath(userDataDir);
  const auto paths = pathsOf(items);
  for (const Path& mount : mountPoints) {
    if (mount == profile || !isAtOrBelow(mount, profile) || contains(found, mount)) continue;
    const bool isInTheWay = std::any_of(paths.begin(), paths.end(), [&](const std::string& path) {
      const Path item = profile / path;
      return isAtOrBelow(mount, item) || isAtOrBelow(item, mount);
    });
    if (isInTheWay) found.push_back(mount);
  }
  return found;
}

}  // namespace quillon
