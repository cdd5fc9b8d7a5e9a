#include <gtest/gtest.h>
#include <unistd.h>

#include <set>

#include "launch_fixture.h"
#include "profile/profile_cleaning.h"

namespace quillon {
namespace {

using tests::Path;
using tests::TemporaryFolder;
using Items = std::set<std::string>;
namespace fs = std::filesystem;

const std::map<std::string, Items> itemsOfKeys{
    {"(tabs)",
     {"Default/Current Tabs", "Default/Current Session", "Default/Last Tabs",
      "Default/Last Session", "Default/Sessions"}},
    {"cookies",
     {"Default/Cookies", "Default/Cookies-journal", "Default/Network/Cookies",
      "Default/Network/Cookies-journal"}},
    {"file_systems", {"Default/File System"}},
    {"indexeddb", {"Default/IndexedDB"}},
    {"local_storage", {"Default/Local Storage"}},
    {"shader_cache", {"ShaderCache", "GraphiteDawnCache", "Default/GPUCache"}},
    {"websql", {"Default/databases"}},
    {"service_workers", {"Default/Service Worker", "Default/Service Worker/CacheStorage"}},
    {"cache_storage", {"Default/Service Worker/CacheStorage"}},
    {"interest_groups", {"Default/InterestGroups"}},
    {"shared_storage", {"Default/Shared Storage", "Default/Shared Storage-journal"}},
    {"storage_buckets", {"Default/StorageBuckets"}},
    // Names that look like those above and are none.
    {"(kept)",
     {"Cookies", "IndexedDB", "Sessions", "GPUCache", "Default/ShaderCache", "Default/cookies",
      "Network/Cookies", "Default/Network/Kept", "Local State"}}};

/// A profile with every item, each a folder with contents.
void fill(const TemporaryFolder& profile) {
  for (const auto& [key, items] : itemsOfKeys) {
    for (const std::string& item : items) profile.write(Path(item) / "deep/file", item);
  }
}

/// The items that are gone.
Items removedFrom(const TemporaryFolder& profile) {
  Items removed;
  for (const auto& [key, items] : itemsOfKeys) {
    for (const std::string& item : items) {
      if (!profile.has(item)) removed.insert(item);
    }
  }
  return removed;
}

void closeTabs(const Path& profile) {
  ProfileItems items;
  clearPreviousTabs(items);
  removeFromProfile(profile, items);
}

void reset(const Path& profile, const std::map<std::string, bool>& keys) {
  ProfileItems items;
  resetGranularStorage(items, keys);
  removeFromProfile(profile, items);
}

TEST(PreviousTabs, RemovesTheFiveItemsAndNothingElse) {
  const TemporaryFolder profile;
  fill(profile);
  closeTabs(profile.path());
  EXPECT_EQ(itemsOfKeys.at("(tabs)"), removedFrom(profile));
  closeTabs(profile.path() / "missing");
}

TEST(StorageReset, RemovesWhatItsKeysSelect) {
  using Reset = std::map<std::string, bool>;
  Items everything;
  std::vector<std::pair<Reset, Items>> rows{
      {{{"all", false}, {"cookies", true}}, itemsOfKeys.at("cookies")},
      {{{"service_workers", true}, {"cache_storage", true}}, itemsOfKeys.at("service_workers")},
      {{{"cookies", false}, {"file_system", true}, {"Cookies", true}}, {}},
      {{}, {}}};
  for (const auto& [key, items] : itemsOfKeys) {
    if (key.starts_with('(')) continue;
    rows.push_back({{{key, true}}, items});
    everything.insert(items.begin(), items.end());
  }
  rows.push_back({{{"all", true}, {"cookies", false}}, everything});
  for (const auto& [keys, removed] : rows) {
    const TemporaryFolder profile;
    fill(profile);
    reset(profile.path(), keys);
    EXPECT_EQ(removed, removedFrom(profile)) << keys.begin()->first;
  }
}

TEST(StorageReset, LinksAreRemovedAsLinksAndNeverFollowed) {
  const TemporaryFolder outside;
  outside.write("Cookies", "kept");
  const TemporaryFolder profile;
  profile.write("Default/IndexedDB/file", "x");
  const auto link = [&](const Path& target, const char* name) {
    fs::create_symlink(target, profile.path() / name);
  };
  link(outside.path(), "ShaderCache");
  link(outside.path() / "Cookies", "Default/Cookies");
  link("dangling", "Default/Cookies-journal");
  link(outside.path(), "Default/Network");
  link(outside.path(), "Default/IndexedDB/inside");
  link("..", "Default/IndexedDB/up");
  reset(profile.path(), {{"all", true}});
  for (const char* item :
       {"ShaderCache", "Default/Cookies", "Default/Cookies-journal", "Default/IndexedDB"}) {
    EXPECT_FALSE(profile.has(item)) << item;
  }
  EXPECT_TRUE(profile.has("Default/Network"));
  EXPECT_TRUE(outside.has("Cookies"));
}

TEST(StorageReset, LinkedDefaultIsLeftAlone) {
  const TemporaryFolder elsewhere;
  fill(elsewhere);
  const TemporaryFolder profile;
  fs::create_symlink(elsewhere.path() / "Default", profile.path() / "Default");
  reset(profile.path(), {{"all", true}});
  closeTabs(profile.path());
  EXPECT_EQ(Items(), removedFrom(elsewhere));
}

TEST(StorageReset, WhatCannotBeRemovedDoesNotKeepTheRest) {
  // Read-only folders do not stop the superuser.
  const uid_t user = ::geteuid();
  constexpr uid_t nobody = 65534;
  if (user == 0) {
    ASSERT_EQ(0, ::seteuid(nobody));
  }
  const TemporaryFolder profile;
  fill(profile);
  profile.write("Default/Local Storage/a/file", "x");
  profile.write("Default/Local Storage/z/file", "x");
  const std::vector<Path> locked{profile.path() / "Default/Cookies",
                                 profile.path() / "Default/Local Storage/deep"};
  for (const Path& folder : locked) fs::permissions(folder, fs::perms::owner_read);
  reset(profile.path(), {{"all", true}});
  for (const Path& folder : locked) {
    fs::permissions(folder, fs::perms::owner_all);
    EXPECT_FALSE(fs::is_empty(folder)) << folder;
  }
  for (const char* item :
       {"Default/Local Storage/a", "Default/Local Storage/z", "Default/StorageBuckets"}) {
    EXPECT_FALSE(profile.has(item)) << item;
  }
  EXPECT_EQ(0, ::seteuid(user));
}

}  // namespace
}  // namespace quillon
