#include <gtest/gtest.h>

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
    // Names that look like those above but are not items.
    {"(kept)",
     {"Cookies", "IndexedDB", "Sessions", "GPUCache", "Default/ShaderCache", "Network/Cookies",
      "Default/Network/Kept", "Local State"}}};

/// A profile with every item, each a folder with contents.
void fill(const TemporaryFolder& profile) {
  for (const auto& [key, items] : itemsOfKeys) {
    for (const std::string& item : items) profile.write(Path(item) / "deep/file", item);
  }
}

/// The items that are missing.
Items removedFrom(const TemporaryFolder& profile) {
  Items removed;
  for (const auto& [key, items] : itemsOfKeys) {
    for (const std::string& item : items) {
      if (!profile.has(item)) removed.insert(item);
    }
  }
  return removed;
}

using Reset = std::map<std::string, bool>;

void clean(const TemporaryFolder& profile, bool closesTabs, const Reset& reset) {
  ProfileItems items;
  if (closesTabs) clearPreviousTabs(items);
  resetGranularStorage(items, reset);
  removeFromProfile(profile.path(), items);
}

TEST(Hygiene, RemovesWhatIsSelectedAndNothingElse) {
  struct Row {
    bool closesTabs;
    Reset reset;
    Items removed;
  };
  Items everything;
  std::vector<Row> rows{{true, {}, itemsOfKeys.at("(tabs)")},
                        {false, {{"all", false}, {"cookies", true}}, itemsOfKeys.at("cookies")},
                        {false,
                         {{"service_workers", true}, {"cache_storage", true}},
                         itemsOfKeys.at("service_workers")},
                        {false, {{"cookies", false}, {"file_system", true}, {"Cookies", true}}, {}},
                        {false, {}, {}}};
  for (const auto& [key, items] : itemsOfKeys) {
    if (key.starts_with('(')) continue;
    rows.push_back({false, {{key, true}}, items});
    everything.insert(items.begin(), items.end());
  }
  rows.push_back({false, {{"all", true}, {"cookies", false}}, everything});
  for (const auto& [closesTabs, reset, removed] : rows) {
    const TemporaryFolder profile;
    fill(profile);
    clean(profile, closesTabs, reset);
    EXPECT_EQ(removed, removedFrom(profile)) << (reset.empty() ? "" : reset.begin()->first);
  }
}

TEST(Hygiene, LinksAreRemovedAsLinksAndNeverFollowed) {
  const TemporaryFolder outside;
  fill(outside);
  const TemporaryFolder profile;
  profile.write("Default/Sessions/file", "x");
  const auto link = [&](const Path& target, const char* name) {
    fs::create_symlink(target, profile.path() / name);
  };
  for (const char* name : {"ShaderCache", "Default/Cookies", "Default/Sessions/inside"}) {
    link(outside.path(), name);
  }
  link("dangling", "Default/Last Tabs");
  link("..", "Default/Sessions/up");
  link(outside.path() / "Default/Network", "Default/Network");
  clean(profile, true, {{"all", true}});
  EXPECT_EQ((std::vector<fs::path>{profile.path() / "Default/Network"}),
            std::vector<fs::path>(fs::directory_iterator(profile.path() / "Default"), {}));
  EXPECT_FALSE(profile.has("ShaderCache"));

  fs::remove_all(profile.path() / "Default");
  link(outside.path() / "Default", "Default");
  clean(profile, true, {{"all", true}});
  EXPECT_EQ(Items(), removedFrom(outside));
  EXPECT_TRUE(profile.has("Default"));
}

}  // namespace
}  // namespace quillon
