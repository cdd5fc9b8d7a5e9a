#include <gtest/gtest.h>
#include <unistd.h>

#include <set>

#include "launch_fixture.h"
#include "profile/hygiene.h"

namespace quillon {
namespace {

using tests::Path;
using tests::TemporaryFolder;

const std::vector<std::string> tabItems{"Default/Current Tabs", "Default/Current Session",
                                        "Default/Last Tabs", "Default/Last Session",
                                        "Default/Sessions"};
const std::map<std::string, std::vector<std::string>> itemsOfKeys{
    {"cookies",
     {"Default/Cookies", "Default/Cookies-journal", "Default/Network/Cookies",
      "Default/Network/Cookies-journal"}},
    {"file_systems", {"Default/File System"}},
    {"indexeddb", {"Default/IndexedDB"}},
    {"local_storage", {"Default/Local Storage"}},
    {"shader_cache", {"ShaderCache", "GraphiteDawnCache", "Default/GPUCache"}},
    {"websql", {"Default/databases"}},
    {"service_workers", {"Default/Service Worker"}},
    {"cache_storage", {"Default/Service Worker/CacheStorage"}},
    {"interest_groups", {"Default/InterestGroups"}},
    {"shared_storage", {"Default/Shared Storage", "Default/Shared Storage-journal"}},
    {"storage_buckets", {"Default/StorageBuckets"}},
};

/// Items that look like those of the lists and are none.
const std::vector<std::string> keptItems{
    "Cookies",      "IndexedDB",           "Sessions",
    "GPUCache",     "Default/ShaderCache", "Default/cookies",
    "Default/Tabs", "Network/Cookies",     "Default/Network/Kept",
    "Local State"};

/// A profile with every item that hygiene knows, each a folder with contents, and the kept ones.
void fill(const TemporaryFolder& profile) {
  const auto addAll = [&](const std::vector<std::string>& items) {
    for (const std::string& item : items) profile.write(Path(item) / "deep/file", item);
  };
  addAll(tabItems);
  for (const auto& [key, items] : itemsOfKeys) addAll(items);
  addAll(keptItems);
}

/// The known items that are gone.
std::set<std::string> removedFrom(const TemporaryFolder& profile) {
  std::set<std::string> removed;
  const auto addMissing = [&](const std::vector<std::string>& items) {
    for (const std::string& item : items) {
      if (!profile.has(item)) removed.insert(item);
    }
  };
  addMissing(tabItems);
  for (const auto& [key, items] : itemsOfKeys) addMissing(items);
  addMissing(keptItems);
  return removed;
}

std::set<std::string> itemsOf(const std::vector<std::string>& keys) {
  std::set<std::string> items;
  for (const std::string& key : keys) {
    items.insert(itemsOfKeys.at(key).begin(), itemsOfKeys.at(key).end());
  }
  return items;
}

TEST(PreviousTabs, RemovesTheFiveItemsAndNothingElse) {
  const TemporaryFolder profile;
  fill(profile);
  clearPreviousTabs(profile.path());
  EXPECT_EQ((std::set<std::string>{tabItems.begin(), tabItems.end()}), removedFrom(profile));
  clearPreviousTabs(profile.path());
  clearPreviousTabs("");
  clearPreviousTabs(profile.path() / "missing");
}

TEST(StorageReset, RemovesWhatItsKeysSelect) {
  struct Row {
    std::map<std::string, bool> reset;
    std::set<std::string> removed;
  };
  std::set<std::string> everything;
  std::vector<Row> rows;
  for (const auto& [key, items] : itemsOfKeys) {
    everything.insert(items.begin(), items.end());
    std::set<std::string> removed(items.begin(), items.end());
    if (key == "service_workers") removed.insert("Default/Service Worker/CacheStorage");
    rows.push_back({{{key, true}}, removed});
  }
  rows.push_back({{{"all", true}, {"cookies", false}}, everything});
  rows.push_back({{{"all", false}, {"cookies", true}}, itemsOf({"cookies"})});
  rows.push_back({{{"websql", true}, {"indexeddb", true}}, itemsOf({"websql", "indexeddb"})});
  rows.push_back({{{"service_workers", true}, {"cache_storage", true}},
                  itemsOf({"service_workers", "cache_storage"})});
  rows.push_back({{{"cookies", false}, {"file_system", true}, {"Cookies", true}}, {}});
  rows.push_back({{}, {}});
  for (const Row& row : rows) {
    const TemporaryFolder profile;
    fill(profile);
    resetGranularStorage(profile.path(), row.reset);
    EXPECT_EQ(row.removed, removedFrom(profile)) << row.reset.begin()->first;
  }
}

TEST(StorageReset, LinksAreRemovedAsLinksAndNeverFollowed) {
  const TemporaryFolder outside;
  outside.write("Cookies", "kept");
  outside.write("CacheStorage/file", "kept");
  const TemporaryFolder profile;
  profile.write("Default/IndexedDB/file", "x");
  const auto link = [&](const Path& target, const char* name) {
    std::filesystem::create_symlink(target, profile.path() / name);
  };
  link(outside.path(), "ShaderCache");
  link(outside.path() / "Cookies", "Default/Cookies");
  link("dangling", "Default/Cookies-journal");
  link(outside.path(), "Default/Network");
  link(outside.path(), "Default/IndexedDB/inside");
  link("..", "Default/IndexedDB/up");
  resetGranularStorage(profile.path(), {{"all", true}});
  for (const char* item :
       {"ShaderCache", "Default/Cookies", "Default/Cookies-journal", "Default/IndexedDB"}) {
    EXPECT_FALSE(profile.has(item)) << item;
  }
  EXPECT_TRUE(profile.has("Default/Network"));
  EXPECT_TRUE(outside.has("Cookies"));
  EXPECT_TRUE(outside.has("CacheStorage/file"));
}

TEST(StorageReset, LinkToTheProfileIsFollowedButNotALinkedDefault) {
  const TemporaryFolder elsewhere;
  fill(elsewhere);
  const TemporaryFolder folder;
  std::filesystem::create_symlink(elsewhere.path(), folder.path() / "profile");
  std::filesystem::create_directory(folder.path() / "other");
  std::filesystem::create_symlink(elsewhere.path() / "Default", folder.path() / "other/Default");
  resetGranularStorage(folder.path() / "other", {{"websql", true}});
  clearPreviousTabs(folder.path() / "other");
  EXPECT_TRUE(removedFrom(elsewhere).empty());
  resetGranularStorage(folder.path() / "profile", {{"websql", true}});
  EXPECT_EQ(itemsOf({"websql"}), removedFrom(elsewhere));
}

/// Read-only folders do not stop the superuser: nobody works as one while this object stands.
class OrdinaryUser {
 public:
  OrdinaryUser() : user_(::geteuid()) {
    if (user_ == 0 && ::seteuid(nobody) != 0) ADD_FAILURE();
  }
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;
  ~OrdinaryUser() { EXPECT_EQ(0, ::seteuid(user_)); }

 private:
  static constexpr uid_t nobody = 65534;
  uid_t user_;
};

TEST(StorageReset, WhatCannotBeRemovedDoesNotKeepTheRest) {
  const OrdinaryUser user;
  const TemporaryFolder file;
  file.write("profile", "a file");
  resetGranularStorage(file.path() / "profile", {{"all", true}});
  EXPECT_EQ("a file", tests::contentOf(file.path() / "profile"));
  const TemporaryFolder profile;
  fill(profile);
  const Path locked = profile.path() / "Default/Cookies";
  std::filesystem::permissions(locked, std::filesystem::perms::owner_read);
  profile.write("Default/Local Storage/a/file", "x");
  profile.write("Default/Local Storage/z/file", "x");
  const Path full = profile.path() / "Default/Local Storage/deep";
  std::filesystem::permissions(full, std::filesystem::perms::owner_read);
  resetGranularStorage(profile.path(), {{"all", true}});
  std::filesystem::permissions(locked, std::filesystem::perms::owner_all);
  std::filesystem::permissions(full, std::filesystem::perms::owner_all);
  EXPECT_TRUE(profile.has("Default/Cookies"));
  EXPECT_TRUE(profile.has("Default/Local Storage/deep/file"));
  EXPECT_FALSE(profile.has("Default/Local Storage/a"));
  EXPECT_FALSE(profile.has("Default/Local Storage/z"));
  EXPECT_FALSE(profile.has("Default/StorageBuckets"));
}

}  // namespace
}  // namespace quillon
