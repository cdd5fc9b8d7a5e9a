#include "launcher/step_texts.h"

#include <array>
#include <string_view>
#include <utility>

namespace quillon {

std::string discoveryText(const DiscoveryOutcome& outcome, bool blocked) {
  const DiscoverResult& result = outcome.result;
  if (!outcome.failed()) return result.ip;
  return blocked ? "BLOCKED: " + result.errorCode
                 : "WARN: " + result.errorCode + " — chrome will fall back";
}

std::string overridesText(const ResolvedPersona& persona, bool blocked) {
  if (blocked) return "skipped — engine launch blocked";
  const std::array<std::pair<std::string_view, const std::string*>, 5> parts{{
      {"ip=", &persona.resolvedFakeIP},
      {"tz=", &persona.resolvedTZ},
      {"lang=", &persona.resolvedLang},
      {"lat=", &persona.resolvedGeoLat},
      {"lng=", &persona.resolvedGeoLng},
  }};
  std::string text;
  for (const auto& [name, value] : parts) {
    if (value->empty()) continue;
    if (!text.empty()) text += ' ';
    text.append(name).append(*value);
  }
  return text.empty() ? "none (passthrough)" : text;
}

std::string engineText(bool blocked) {
  return blocked ? "aborted (exit 42)" : "";
}

}  // namespace quillon
