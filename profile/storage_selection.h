#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace quillon {

/// An item of stored site data and the folder its path counts from.
struct StoredItem {
  enum class Base { root, defaultProfile };

  Base base;
  std::string_view path;

  bool operator==(const StoredItem&) const = default;
};

/// The items that a reset removes, in their order. Pure; any thread.
[[nodiscard]] std::vector<StoredItem> selectedItems(
    const std::map<std::string, bool>& granularStorageReset);

}  // namespace quillon
