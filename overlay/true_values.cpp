#include "overlay/true_values.h"

#include <algorithm>
#include <array>
#include <string>

#include "platform/text/text.h"

namespace quillon {
namespace {

using platform::JsonNumber;
using platform::JsonValue;

std::optional<bool> boolOrNumber(const JsonValue& value) {
  if (const auto* boolean = value.as<bool>()) return *boolean;
  if (const auto* number = value.as<JsonNumber>()) return platform::isNonZero(*number);
  return std::nullopt;
}

bool isActiveText(const std::string& text) {
  constexpr std::array<std::string_view, 5> inactive{"", "false", "0", "off", "no"};
  const std::string word = platform::lowerCased(platform::trimBlanks(text));
  return std::find(inactive.begin(), inactive.end(), word) == inactive.end();
}

}  // namespace

bool isTrueKeyValue(const JsonValue& value) {
  if (const auto* text = value.as<std::string>()) return *text == "true" || *text == "1";
  return boolOrNumber(value).value_or(false);
}

std::optional<bool> resetMemberValue(const JsonValue& value) {
  return boolOrNumber(value);
}

bool isActiveOverlayValue(const JsonValue& value) {
  if (value.as<std::monostate>() != nullptr) return false;
  if (const auto* text = value.as<std::string>()) return isActiveText(*text);
  return boolOrNumber(value).value_or(true);
}

}  // namespace quillon
