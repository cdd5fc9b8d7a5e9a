#include "profile/storage_selection.h"

#include <array>

namespace quillon {
namespace {

using enum StoredItem::Base;

struct ResetRow {
  std::string_view key;
  StoredItem item;
};

/// A key stands in a row for each of its items.
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

std::vector<StoredItem> selectedItems(const std::map<std::string, bool>& granularStorageReset) {
  const auto isTrue = [&](std::string_view key) {
    const auto entry = granularStorageReset.find(std::string(key));
    return entry != granularStorageReset.end() && entry->second;
  };
  const bool all = isTrue("all");
  // The cache storage lies inside what the service workers' row removes whole.
  const bool withServiceWorkers = all || isTrue("service_workers");
  std::vector<StoredItem> items;
  for (const ResetRow& row : resetTable) {
    if (row.key == "cache_storage" && withServiceWorkers) continue;
    if (all || isTrue(row.key)) items.push_back(row.item);
  }
  return items;
}

}  // namespace quillon
