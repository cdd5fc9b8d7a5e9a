#pragma once

#include <cstdlib>

namespace quillon::fuzz {

/// Ends a fuzzing run with the input at hand as a finding.
inline void require(bool holds) {
  if (!holds) std::abort();
}

}  // namespace quillon::fuzz
