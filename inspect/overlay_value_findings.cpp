#include <algorithm>
#include <array>
#include <string>

#include "engine/engine_arguments.h"
#include "inspect/findings.h"
#include "overlay/key_list.h"
#include "overlay/overlay_keys.h"

namespace quillon {
namespace {

using platform::JsonArray;
using platform::JsonNumber;
using platform::JsonObject;
using platform::JsonValue;
using Level = Finding::Level;

/// The value in the message, unless it is long.
std::string shown(const JsonValue& value) {
  constexpr std::size_t longest = 40;
  if (value.as<JsonObject>() != nullptr) return "an object";
  if (value.as<JsonArray>() != nullptr) return "a list";
  const std::string text = platform::compactJsonText(value);
  return text.size() > longest ? "a text" : text;
}

bool isAny(const OverlayKey&, const JsonObject&) {
  return true;
}

template <class Kind>
bool isOfKind(const OverlayKey& key, const JsonObject& overlay) {
  return overlay.find<Kind>(key.name) != nullptr;
}

/// Also a text that says off: it has the effect that its author wants.
bool isSwitch(const OverlayKey& key, const JsonObject& overlay) {
  constexpr std::array<std::string_view, 5> off{"", "0", "false", "off", "no"};
  const auto* text = overlay.find<std::string>(key.name);
  if (text == nullptr) return isOfKind<bool>(key, overlay) || isOfKind<JsonNumber>(key, overlay);
  return overlayBool(key.name, overlay) || std::find(off.begin(), off.end(), *text) != off.end();
}

bool isPolicy(const OverlayKey& key, const JsonObject& overlay) {
  const auto* text = overlay.find<std::string>(key.name);
  return text != nullptr && overlayKeysFrom(overlay).onProxyFail == *text;
}

bool isPort(const OverlayKey&, const JsonObject& overlay) {
  return !debuggingSwitches(overlayKeysFrom(overlay).cdpTcpPort, {}).empty();
}

/// What the launcher makes of a value that it cannot use, and what it could use.
struct KindRule {
  OverlayKeyKind kind;
  bool (*isUsable)(const OverlayKey& key, const JsonObject& overlay);
  const char* consequence;
  const char* remedy;
};

using enum OverlayKeyKind;
constexpr std::array<KindRule, 7> kindRules{{
    {text, isOfKind<std::string>, "counts as absent", "Give a text in quotes."},
    {onOff, isSwitch, "counts as off", "Give true or false."},
    {presence, isAny, "", ""},
    {policy, isPolicy, R"(counts as "block")", R"(Give "block" or "fallback".)"},
    {port, isPort, "is no port: there will be no remote debugging", "Give one from 1 to 65535."},
    {resetKeys, isOfKind<JsonObject>, "wipes nothing",
     R"(Give an object such as {"cookies": true}.)"},
    {rawSwitches, isOfKind<JsonObject>, "counts as absent",
     R"(Give an object such as {"--proxy-server": "socks5://host:1080"}.)"},
}};

/// Whether the persona is not what it should be without the key.
bool carriesPersona(std::string_view key) {
  if (key == "proxy-server" || key == "webgl-profile") return true;
  return std::any_of(derivations.begin(), derivations.end(),
                     [&](const Derivation& derivation) { return derivation.askedBy == key; });
}

/// Null is how some programs write "absent", which is what it counts as.
Level levelOf(const OverlayKey& key, const JsonValue& value) {
  if (value.as<std::monostate>() != nullptr) return Level::note;
  return carriesPersona(key.name) ? Level::error : Level::warning;
}

Findings unusableValues(const LaunchPreview& preview) {
  const JsonObject& overlay = *preview.host.overlay.object;
  Findings findings;
  for (const OverlayKey& key : overlayKeyList) {
    const JsonValue* value = overlay.find(key.name);
    const auto* rule =
        std::find_if(kindRules.begin(), kindRules.end(),
                     [&](const KindRule& candidate) { return candidate.kind == key.kind; });
    if (value == nullptr || rule->isUsable(key, overlay)) continue;
    const std::string name(key.name);
    findings.push_back({levelOf(key, *value), name,
                        inOverlay(preview, name) + " is " + shown(*value) + ", which " +
                            rule->consequence + ". " + rule->remedy});
  }
  return findings;
}

Findings unusableResetValues(const LaunchPreview& preview) {
  constexpr const char* key = "granular-storage-reset";
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

/// The engine is left to find a value where there is none.
Findings emptyGivenValues(const LaunchPreview& preview) {
  const JsonObject& overlay = *preview.host.overlay.object;
  Findings findings;
  for (const OverlayKey& key : overlayKeyList) {
    if (key.kind != presence) continue;
    const JsonValue* value = overlay.find(key.name);
    if (value == nullptr) continue;
    const auto* text = value->as<std::string>();
    if (value->as<std::monostate>() == nullptr && (text == nullptr || !text->empty())) continue;
    const std::string name(key.name);
    findings.push_back({Level::warning, name,
                        inOverlay(preview, name) + " is " + shown(*value) +
                            ", but counts as given because it is there: the launcher gives the "
                            "engine no value of its own. Give one or take the key out."});
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
