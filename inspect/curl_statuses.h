#pragma once

#include <cstdint>
#include <string>

namespace quillon {

/// What an exit status of curl means for a discovery, in a few words. Pure.
[[nodiscard]] std::string curlStatusText(std::int64_t exitStatus);

}  // namespace quillon
