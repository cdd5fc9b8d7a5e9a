#include <algorithm>
#include <array>
#include <string>

#include "inspect/findings.h"
#include "inspect/nearest_key.h"
#include "overlay/overlay_keys.h"
#include "profile/profile_items.h"

namespace quillon {
namespace {

using platform::JsonFault;
using platform::JsonMember;
using platform::JsonObject;
using Level = Finding::Level;

constexpr const char* withoutPersona = " The engine starts without anything of the persona.";

std::string faultText(const JsonFault& fault) {
  constexpr std::array<const char*, 3> reasons{"is not valid JSON", "holds no JSON object",
                                               "is nested too deep"};
  std::string text = reasons.at(static_cast<std::size_t>(fault.kind));
  if (fault.line == 0) return text;
  return text + " (line " + std::to_string(fault.line) + ", column " +
         std::to_string(fault.column) + ")";
}

Findings unusableFile(const LaunchPreview& preview) {
  const std::string file = preview.values.overlayURL.text();
  switch (preview.host.overlay.state) {
    case JsonFile::State::read:
      return {};
    case JsonFile::State::missing:
      return {{Level::warning, "",
               "There is no overlay, neither in the profile folder nor at " + file + "." +
                   withoutPersona + " Write one."}};
    case JsonFile::State::unreadable:
      return {{Level::error, "",
               file + " cannot be read: it is no file, not allowed to you, or larger than " +
                   std::to_string(platform::maxReadableBytes >> 20) + " MiB." + withoutPersona +
                   " Put a readable file there."}};
    case JsonFile::State::malformed:
      break;
  }
  return {{Level::error, "",
           file + " " + faultText(preview.host.overlay.problems.fault.value_or(JsonFault())) + "." +
               withoutPersona + " Correct the file."}};
}

bool isComment(std::string_view key) {
  return key.starts_with('_');
}

std::vector<std::string_view> overlayKeyNames() {
  std::vector<std::string_view> names;
  names.reserve(overlayKeyTable.size());
  for (const OverlayKey& key : overlayKeyTable) names.push_back(key.name);
  return names;
}

bool isAmong(std::string_view name, const std::vector<std::string_view>& names) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

/// An unknown key can be one of the engine's, which reads the same file. It is reported only if it
/// looks misspelt and the overlay does not contain the key that it resembles.
Findings misspeltKeys(const LaunchPreview& preview) {
  const JsonObject& overlay = *preview.host.overlay.object;
  const auto known = overlayKeyNames();
  Findings findings;
  for (const JsonMember& member : overlay.members()) {
    if (isComment(member.key) || isAmong(member.key, known)) continue;
    const std::string_view nearest = nearestKey(member.key, known);
    if (nearest.empty() || overlay.find(nearest) != nullptr) continue;
    findings.push_back({Level::warning, member.key,
                        inOverlay(preview, member.key) +
                            " is no key that the launcher knows, and has no effect on it. Is \"" +
                            std::string(nearest) + "\" meant?"});
  }
  return findings;
}

Findings unknownResetKeys(const LaunchPreview& preview) {
  const std::string key(overlayKey("granular-storage-reset").name);
  const auto* reset = preview.host.overlay.object->find<JsonObject>(key);
  const auto known = granularResetKeys();
  Findings findings;
  if (reset == nullptr) return findings;
  for (const JsonMember& member : reset->members()) {
    if (isComment(member.key) || isAmong(member.key, known)) continue;
    std::string names;
    for (const std::string_view name : known) names.append(names.empty() ? "" : ", ").append(name);
    const std::string_view nearest = nearestKey(member.key, known);
    findings.push_back({Level::warning, key,
                        '"' + member.key + "\" within " + inOverlay(preview, key) +
                            " is no kind of site data and wipes nothing. " +
                            (nearest.empty() ? "The kinds are " + names + "."
                                             : "Is \"" + std::string(nearest) + "\" meant?")});
  }
  return findings;
}

constexpr const char* givenTwice = " is given more than once: the last one counts. Keep one.";

Findings repeatedKeys(const LaunchPreview& preview) {
  const platform::JsonProblems& problems = preview.host.overlay.problems;
  Findings findings;
  for (const std::string& key : problems.repeatedKeys) {
    findings.push_back({Level::warning, key, inOverlay(preview, key) + givenTwice});
  }
  for (const OverlayKey& key : overlayKeyTable) {
    const std::string name(key.name);
    const auto within = problems.repeatedKeysWithin.find(name);
    if (within == problems.repeatedKeysWithin.end()) continue;
    for (const std::string& member : within->second) {
      findings.push_back({Level::warning, name,
                          '"' + member + "\" within " + inOverlay(preview, name) + givenTwice});
    }
  }
  return findings;
}

}  // namespace

Findings overlayFileFindings(const LaunchPreview& preview) {
  if (!preview.host.overlay.object) return unusableFile(preview);
  constexpr std::array<Check, 3> checks{misspeltKeys, unknownResetKeys, repeatedKeys};
  return findWith(checks, preview);
}

}  // namespace quillon
