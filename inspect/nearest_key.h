#pragma once

#include <string_view>
#include <vector>

namespace quillon {

/// The known key that a misspelt key most likely means; empty if none is similar. Case and "_"
/// instead of "-" are ignored. One letter in five may be wrong. Pure.
[[nodiscard]] std::string_view nearestKey(std::string_view key,
                                          const std::vector<std::string_view>& known);

}  // namespace quillon
