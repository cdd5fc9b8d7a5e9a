#pragma once

#include <string>

#include "discovery/discover_and_resolve.h"
#include "discovery/persona.h"

/// What the steps of the splash window say once they are over. Pure.
namespace quillon {

/// The exit address; after a failure its code and what the overlay's policy makes of it.
[[nodiscard]] std::string discoveryText(const DiscoveryOutcome& outcome, bool blocked);

/// The derived values; "none (passthrough)" without any.
[[nodiscard]] std::string overridesText(const ResolvedPersona& persona, bool blocked);

/// Empty unless the engine is not started.
[[nodiscard]] std::string engineText(bool blocked);

}  // namespace quillon
