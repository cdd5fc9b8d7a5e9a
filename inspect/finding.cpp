#include "inspect/finding.h"

#include <iterator>

namespace quillon {

Findings findWith(std::span<const Check> checks, const LaunchPreview& preview) {
  Findings all;
  for (const Check check : checks) {
    Findings found = check(preview);
    all.insert(all.end(), std::make_move_iterator(found.begin()),
               std::make_move_iterator(found.end()));
  }
  return all;
}

std::string inOverlay(const LaunchPreview& preview, const std::string& key) {
  return '"' + key + "\" in " + preview.values.overlayURL.text();
}

}  // namespace quillon
