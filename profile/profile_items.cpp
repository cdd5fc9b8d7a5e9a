#include "profile/profile_items.h"

#include <array>

namespace quillon {
namespace {

using enum ProfileItem::Base;

constexpr std::array<ProfileItem, 5> sessionItems{{
    {defaultProfile, "Current Tabs"},
    {defaultProfile, "Current Session"},
    {defaultProfile, "Last Tabs"},
    {defaultProfile, "Last Session"},
    {defaultProfile, "Sessions"},
}};

struct ResetRow {
  std::string_view key;
  ProfileItem item;
};

/// One row for each item; a key can have several.
constexpr std::array<ResetRow, 17> resetTable{{
    {"cookies", {defaultProfile, "Cookies"}},
    {"cookies", {defaultProfile, "Cookies-journal"}},
    {"cookies", {defaultProfile, "Network/Cookies"}},
    {"cookies", {defaultProfile, "Network/Cookies-journal"}},
    {"file_systems", {defaultProfile, "File System"}},
    {"indexeddb", {defaultProfile, "IndexedDB"}},
    {"local_storage", {defaultProfile, "Local Storage"}},
    {"shader_cache", {root, "ShaderCache"}},
    {"shader_cache", {root, "GraphiteDawnCache"}},
    {"shader_cache", {defaultProfile, "GPUCache"}},
    {"websql", {defaultProfile, "databases"}},
    {"service_workers", {defaultProfile, "Service Worker"}},
    {"cache_storage", {defaultProfile, "Service Worker/CacheStorage"}},
    {"interest_groups", {defaultProfile, "InterestGroups"}},
    {"shared_storage", {defaultProfile, "Shared Storage"}},
    {"shared_storage", {defaultProfile, "Shared Storage-journal"}},
    {"storage_buckets", {defaultProfile, "StorageBuckets"}},
}};

}  // namespace

void clearPreviousTabs(ProfileItems& removals) {
  removals.insert(removals.end(), sessionItems.begin(), sessionItems.end());
}

std::vector<std::string_view> granularResetKeys() {
  std::vector<std::string_view> keys{"all"};
  for (const ResetRow& row : resetTable) {
    if (row.key != keys.back()) keys.push_back(row.key);
  }
  return keys;
}

void resetGranularStorage(ProfileItems& removals,
                          const std::map<std::string, bool>& granularStorageReset) {
  const auto isTrue = [&](std::string_view key) {
    const auto entry = granularStorageReset.find(std::string(key));
    return entry != granularStorageReset.end() && entry->second;
  };
  const bool all = isTrue("all");
  // The row of the service workers removes the whole folder that contains the cache storage.
  const bool withServiceWorkers = all || isTrue("service_workers");
  for (const ResetRow& row : resetTable) {
    if (row.key == "cache_storage" && withServiceWorkers) continue;
    if (all || isTrue(row.key)) removals.push_back(row.item);
  }
}

}  // namespace quillon
