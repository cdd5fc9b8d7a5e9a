#include "overlay/overlay_keys.h"

#include "overlay/true_values.h"
#include "platform/text/text.h"

namespace quillon {
namespace {

using platform::JsonNumber;
using platform::JsonObject;
using platform::JsonValue;
using ResetMembers = std::map<std::string, bool>;

std::string textFrom(const JsonValue& value) {
  const auto* text = value.as<std::string>();
  return text == nullptr ? std::string() : *text;
}

std::string failPolicyFrom(const JsonValue& value) {
  return textFrom(value) == "fallback" ? "fallback" : "block";
}

std::string portFrom(const JsonValue& value) {
  if (const auto* text = value.as<std::string>()) return std::string(platform::trimBlanks(*text));
  if (const auto* boolean = value.as<bool>()) return *boolean ? "1" : "0";
  const auto* number = value.as<JsonNumber>();
  return number == nullptr ? std::string() : platform::integerPartText(*number);
}

ResetMembers resetMembersFrom(const JsonValue& value) {
  ResetMembers reset;
  const auto* object = value.as<JsonObject>();
  if (object == nullptr) return reset;
  for (const platform::JsonMember& member : object->members()) {
    if (const auto isTrue = resetMemberValue(member.value)) reset[member.key] = *isTrue;
  }
  return reset;
}

std::string rawProxyFrom(const JsonValue& value) {
  const auto* switches = value.as<JsonObject>();
  return switches == nullptr ? std::string() : switches->text("--proxy-server");
}

template <class Type>
Type& fieldOf(OverlayKeys& keys, const OverlayKey& key) {
  return keys.*std::get<Type OverlayKeys::*>(key.field);
}

void readValue(OverlayKeys& keys, const OverlayKey& key, const JsonValue& value) {
  switch (key.type) {
    case OverlayKeyType::text:
      fieldOf<std::string>(keys, key) = textFrom(value);
      break;
    case OverlayKeyType::boolean:
      fieldOf<bool>(keys, key) = isTrueKeyValue(value);
      break;
    case OverlayKeyType::presence:
      fieldOf<bool>(keys, key) = true;
      break;
    case OverlayKeyType::failPolicy:
      fieldOf<std::string>(keys, key) = failPolicyFrom(value);
      break;
    case OverlayKeyType::port:
      fieldOf<std::string>(keys, key) = portFrom(value);
      break;
    case OverlayKeyType::resetMembers:
      fieldOf<ResetMembers>(keys, key) = resetMembersFrom(value);
      break;
    case OverlayKeyType::rawSwitches:
      if (auto& proxy = fieldOf<std::string>(keys, key); proxy.empty()) proxy = rawProxyFrom(value);
      break;
  }
}

}  // namespace

bool overlayBool(const OverlayKey& key, const JsonObject& overlayObject) {
  const JsonValue* value = overlayObject.find(key.name);
  return value != nullptr && isTrueKeyValue(*value);
}

OverlayKeys overlayKeysFrom(const JsonObject& overlayObject) {
  OverlayKeys keys;
  for (const OverlayKey& key : overlayKeyTable) {
    if (const JsonValue* value = overlayObject.find(key.name)) readValue(keys, key, *value);
  }
  keys.closePreviousTabs = keys.closePreviousTabs || !keys.startPage.empty();
  return keys;
}

OverlayKeys loadOverlayKeys(const std::optional<JsonObject>& overlayObject) {
  return overlayObject ? overlayKeysFrom(*overlayObject) : OverlayKeys();
}

}  // namespace quillon
