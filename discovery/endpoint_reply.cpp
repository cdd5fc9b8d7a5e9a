#include "discovery/endpoint_reply.h"

#include "platform/text/json.h"
#include "platform/text/text.h"

namespace quillon {
namespace {

using platform::JsonNumber;
using platform::JsonObject;

std::string coordinateOf(const JsonObject& object, std::string_view key) {
  const auto* number = object.find<JsonNumber>(key);
  return number == nullptr ? object.text(key) : platform::numberText(*number);
}

DiscoverResult readJsonReply(std::string_view reply) {
  DiscoverResult result;
  const auto object = platform::parseJsonObject(reply, platform::JsonDepth::members);
  if (!object) return result;
  result.ip = object->text("ip");
  result.countryCode = object->text("country_code");
  result.timezone = object->text("timezone");
  result.latitude = coordinateOf(*object, "latitude");
  result.longitude = coordinateOf(*object, "longitude");
  return result;
}

DiscoverResult readBareReply(std::string_view reply) {
  DiscoverResult result;
  // The first line that is not empty.
  const std::string_view line = platform::firstLine(platform::skipWhitespace(reply));
  result.ip = platform::trimBlanks(line);
  return result;
}

}  // namespace

DiscoverResult readEndpointReply(std::string_view reply) {
  const bool isJson = platform::skipWhitespace(reply).starts_with('{');
  return isJson ? readJsonReply(reply) : readBareReply(reply);
}

bool isUsableAddress(std::string_view text) {
  constexpr std::size_t shortest = 7;
  constexpr std::size_t longest = 45;
  const std::size_t length = platform::characterCount(platform::truncatedAtNul(text), longest + 1);
  return length >= shortest && length <= longest;
}

bool isUsableCoordinate(std::string_view text) {
  return !platform::truncatedAtNul(text).empty();
}

}  // namespace quillon
