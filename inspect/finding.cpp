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

std::string inOverlay(const LaunchPreview& preview, std::string_view key) {
  return '"' + std::string(key) + "\" in " + preview.values.overlayURL.text();
}

Finding findingAbout(const OverlayKey& key, Finding::Level level, const LaunchPreview& preview,
                     std::string_view text) {
  return {level, std::string(key.name), inOverlay(preview, key.name).append(text)};
}

}  // namespace quillon
