#pragma once

#include <string>

#include "discovery/discover_and_resolve.h"
#include "discovery/persona.h"

/// The status texts of completed steps in the splash window. Pure.
namespace quillon {

/// The egress address; after a failure the error code and whether the overlay blocks the engine.
[[nodiscard]] std::string discoveryText(const DiscoveryOutcome& outcome, bool blocked);

/// The derived values, or "none (passthrough)" if there are none.
[[nodiscard]] std::string overridesText(const ResolvedPersona& persona, bool blocked);

/// Empty if the engine is started.
[[nodiscard]] std::string engineText(bool blocked);

}  // namespace quillon
