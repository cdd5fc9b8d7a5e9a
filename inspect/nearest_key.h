#pragma once

#include <string_view>
#include <vector>

namespace quillon {

/// The known key that a typing error most likely meant; empty when none is near. Case and "_" for
/// "-" count as no difference at all; of the rest, one letter in five may be wrong. Pure.
[[nodiscard]] std::string_view nearestKey(std::string_view key,
                                          const std::vector<std::string_view>& known);

}  // namespace quillon
