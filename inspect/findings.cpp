#include "inspect/findings.h"

#include <algorithm>
#include <array>

namespace quillon {

Findings findingsOf(const LaunchPreview& preview) {
  constexpr std::array<Check, 7> checks{
      overlayFileFindings, overlayValueFindings, overlayEffectFindings, catalogueFindings,
      argumentFindings,    hostFindings,         discoveryFindings};
  Findings all = findWith(checks, preview);
  std::stable_sort(all.begin(), all.end(), [](const Finding& left, const Finding& right) {
    return left.level < right.level;
  });
  return all;
}

std::string_view nameOf(Finding::Level level) {
  constexpr std::array<std::string_view, 3> names{"error", "warning", "note"};
  return names.at(static_cast<std::size_t>(level));
}

}  // namespace quillon
