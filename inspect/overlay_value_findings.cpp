#include <algorithm>
#include <array>
#include <string>

#include "engine/engine_arguments.h"
#include "inspect/findings.h"
#include "overlay/overlay_keys.h"

namespace quillon {
namespace {

using platform::JsonArray;
using platform::JsonNumber;
using platform::JsonObject;
using platform::JsonValue;
using Level = Finding::Level;

/// The value as the message shows it: its text, or its type if that is long.
std::string shown(const JsonValue& value) {
  constexpr std::size_t longest = 40;
  if (value.as<JsonObject>() != nullptr) return "an object";
  if (value.as<JsonArray>() != nullptr) return "a list";
  const std::string text = platform::compactJsonText(value);
  return text.size() > longest ? "a text" : text;
}

bool isPresent(const OverlayKey&, const JsonObject&) {
  return true;
}

template <class Type>
bool isOfType(const OverlayKey& key, const JsonObject& overlay) {
  return overlay.find<Type>(key.name) != nullptr;
}

/// Also accepts a text that means false: its author wants no effect, and it has none.
bool isBoolean(const OverlayKey& key, const JsonObject& overlay) {
  constexpr std::array<std::string_view, 5> off{"", "0", "false", "off", "no"};
  const auto* text = overlay.find<std::string>(key.name);
  if (text == nullptr) return isOfType<bool>(key, overlay) || isOfType<JsonNumber>(key, overlay);
  return overlayBool(key, overlay) || std::find(off.begin(), off.end(), *text) != off.end();
}

bool isPolicy(const OverlayKey& key, const JsonObject& overlay) {
  const auto* text = overlay.find<std::string>(key.name);
  return text != nullptr && overlayKeysFrom(overlay).onProxyFail == *text;
}

bool isPort(const OverlayKey&, const JsonObject& overlay) {
  return !debuggingSwitches(overlayKeysFrom(overlay).cdpTcpPort, {}).empty();
}

/// The effect of a value that a type of key does not accept, and what it accepts.
struct TypeRule {
  OverlayKeyType type;
  bool (*isUsable)(const OverlayKey& key, const JsonObject& overlay);
  const char* consequence;
  const char* remedy;
};

using enum OverlayKeyType;
constexpr std::array<TypeRule, 7> typeRules{{
    {text, isOfType<std::string>, "counts as absent", "Give a text in quotes."},
    {boolean, isBoolean, "counts as off", "Give true or false."},
    {presence, isPresent, "", ""},
    {failPolicy, isPolicy, R"(counts as "block")", R"(Give "block" or "fallback".)"},
    {port, isPort, "is no port: there will be no remote debugging", "Give one from 1 to 65535."},
    {resetMembers, isOfType<JsonObject>, "wipes nothing",
     R"(Give an object such as {"cookies": true}.)"},
    {rawSwitches, isOfType<JsonObject>, "counts as absent",
     R"(Give an object such as {"--proxy-server": "socks5://host:1080"}.)"},
}};

/// Whether the persona is wrong if the launcher ignores the key.
bool belongsToPersona(const OverlayKey& key) {
  if (key.name == overlayKey("proxy-server").name) return true;
  if (key.name == overlayKey("webgl-profile").name) return true;
  return std::any_of(derivations.begin(), derivations.end(), [&](const Derivation& derivation) {
    return derivation.askedBy.name == key.name;
  });
}

/// Some programs write null for a missing key, and the launcher treats it as missing.
Level levelOf(const OverlayKey& key, const JsonValue& value) {
  if (value.as<std::monostate>() != nullptr) return Level::note;
  return belongsToPersona(key) ? Level::error : Level::warning;
}

Findings unusableValues(const LaunchPreview& preview) {
  const JsonObject& overlay = *preview.host.overlay.object;
  Findings findings;
  for (const OverlayKey& key : overlayKeyTable) {
    const JsonValue* value = overlay.find(key.name);
    const auto* rule =
        std::find_if(typeRules.begin(), typeRules.end(),
                     [&](const TypeRule& candidate) { return candidate.type == key.type; });
    if (value == nullptr || rule->isUsable(key, overlay)) continue;
    findings.push_back(findingAbout(
        key, levelOf(key, *value), preview,
        " is " + shown(*value) + ", which " + rule->consequence + ". " + rule->remedy));
  }
  return findings;
}

Findings unusableResetValues(const LaunchPreview& preview) {
  const std::string key(overlayKey("granular-storage-reset").name);
  const auto* reset = preview.host.overlay.object->find<JsonObject>(key);
  Findings findings;
  if (reset == nullptr) return findings;
  const auto& read = preview.values.request.overlay.granularStorageReset;
  for (const platform::JsonMember& member : reset->members()) {
    if (member.key.starts_with('_') || read.contains(member.key)) continue;
    const bool isNull = member.value.as<std::monostate>() != nullptr;
    findings.push_back({isNull ? Level::note : Level::warning, key,
                        '"' + member.key + "\" within " + inOverlay(preview, key) + " is " +
                            shown(member.value) +
                            ", which does not count here: it wipes nothing. Give true or false."});
  }
  return findings;
}

/// The engine reads these values itself, and finds none.
Findings emptyGivenValues(const LaunchPreview& preview) {
  const JsonObject& overlay = *preview.host.overlay.object;
  Findings findings;
  for (const OverlayKey& key : overlayKeyTable) {
    if (key.type != presence) continue;
    const JsonValue* value = overlay.find(key.name);
    if (value == nullptr) continue;
    const auto* text = value->as<std::string>();
    if (value->as<std::monostate>() == nullptr && (text == nullptr || !text->empty())) continue;
    findings.push_back(
        findingAbout(key, Level::warning, preview,
                     " is " + shown(*value) +
                         ", but counts as given because it is there: the launcher gives the "
                         "engine no value of its own. Give one or take the key out."));
  }
  return findings;
}

}  // namespace

Findings overlayValueFindings(const LaunchPreview& preview) {
  if (!preview.host.overlay.object) return {};
  constexpr std::array<Check, 3> checks{unusableValues, unusableResetValues, emptyGivenValues};
  return findWith(checks, preview);
}

}  // namespace quillon
