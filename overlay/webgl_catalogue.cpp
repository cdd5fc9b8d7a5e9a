#include "overlay/webgl_catalogue.h"

#include <utility>

#include "platform/files/files.h"
#include "platform/text/text.h"

namespace quillon {
namespace {

using platform::JsonNumber;
using platform::JsonObject;
using platform::JsonValue;

constexpr std::string_view catalogueFileName = "quillon-webgl-profiles.json";

/// The value as text for a switch; empty for null.
std::string switchValueText(const JsonValue& value) {
  if (value.as<std::monostate>() != nullptr) return {};
  if (const auto* text = value.as<std::string>()) return *text;
  if (const auto* boolean = value.as<bool>()) return *boolean ? "1" : "0";
  if (const auto* number = value.as<JsonNumber>()) return platform::numberText(*number);
  return compactJsonText(value);
}

}  // namespace

std::optional<WebglCatalogue> readWebglCatalogue(const CataloguePlaces& places) {
  for (const auto& folder :
       {places.bundle.resources, platform::Path(places.programPath).folder()}) {
    platform::Path url = folder / catalogueFileName;
    const auto text = platform::readFile(url);
    if (text) return WebglCatalogue{std::move(url), platform::parseJsonObject(*text)};
    if (platform::exists(url)) return WebglCatalogue{std::move(url), std::nullopt};
  }
  return std::nullopt;
}

const JsonObject* findWebglProfiles(const JsonObject& catalogue) {
  return catalogue.find<JsonObject>("profiles");
}

std::vector<std::string> switchesOfWebglProfile(const JsonObject& catalogue,
                                                std::string_view profileName) {
  std::vector<std::string> switches;
  const auto* profiles = findWebglProfiles(catalogue);
  const auto* profile = profiles == nullptr ? nullptr : profiles->find<JsonObject>(profileName);
  if (profile == nullptr) return switches;
  for (const auto& [name, value] : profile->members()) {
    const std::string text = switchValueText(value);
    // The engine gets the text before its first NUL.
    if (name.starts_with('_') || platform::truncatedAtNul(text).empty()) continue;
    switches.push_back(std::string("--").append(name).append("=").append(text));
  }
  return switches;
}

std::vector<std::string> webglProfileSwitches(std::string_view profileName,
                                              const CataloguePlaces& places) {
  if (profileName.empty()) return {};
  const auto catalogue = readWebglCatalogue(places);
  if (!catalogue || !catalogue->object) return {};
  return switchesOfWebglProfile(*catalogue->object, profileName);
}

}  // namespace quillon
