#include "platform/text/json.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <exception>
#include <functional>
#include <nlohmann/json.hpp>
#include <utility>

namespace quillon::platform {
namespace {

/// Builds the values from the parser's events. A function that returns false ends the parsing.
/// Open containers are on a stack; when one is closed, it becomes a value of its parent.
class TreeBuilder {
 public:
  explicit TreeBuilder(JsonDepth depth) : depth_(depth) {}

  using number_integer_t = std::int64_t;
  using number_unsigned_t = std::uint64_t;
  using number_float_t = double;
  using string_t = std::string;
  using binary_t = nlohmann::json::binary_t;

  // NOLINTBEGIN(readability-identifier-naming,readability-convert-member-functions-to-static):
  // the parser's names and member functions.
  bool null() { return add({}); }
  bool boolean(bool value) { return add({value}); }
  bool number_integer(std::int64_t value) { return add({JsonNumber(value)}); }
  bool number_unsigned(std::uint64_t value) { return add({JsonNumber(value)}); }
  bool number_float(double value, const std::string&) { return add({JsonNumber(value)}); }
  bool string(std::string& value) { return add({std::make_unique<std::string>(value)}); }
  bool binary(binary_t&) { return false; }

  bool start_object(std::size_t) { return open(Container{std::vector<JsonMember>()}); }
  bool key(std::string& name) {
    if (isSkipped()) return true;
    std::get<std::vector<JsonMember>>(containers_.back()).push_back({name, {}});
    return true;
  }
  bool end_object() {
    JsonObject object(std::move(std::get<std::vector<JsonMember>>(containers_.back())));
    containers_.pop_back();
    if (containers_.empty()) {
      root_ = std::move(object);
      return true;
    }
    return add({std::make_unique<JsonObject>(std::move(object))});
  }

  /// The top level must be an object.
  bool start_array(std::size_t) { return !containers_.empty() && open(Container{JsonArray()}); }
  bool end_array() {
    auto array = std::make_unique<JsonArray>(std::move(std::get<JsonArray>(containers_.back())));
    containers_.pop_back();
    return add({std::move(array)});
  }

  bool parse_error(std::size_t, const std::string&, const nlohmann::json::exception&) {
    return false;
  }
  // NOLINTEND(readability-identifier-naming,readability-convert-member-functions-to-static)

  [[nodiscard]] JsonObject takeRoot() { return std::move(root_); }

 private:
  using Container = std::variant<std::vector<JsonMember>, JsonArray>;

  bool open(Container container) {
    if (containers_.size() == maxJsonDepth) return false;
    containers_.push_back(std::move(container));
    return true;
  }

  /// Whether the values of the innermost open container are discarded.
  [[nodiscard]] bool isSkipped() const {
    return depth_ == JsonDepth::members && containers_.size() > 1;
  }

  bool add(JsonValue value) {
    if (containers_.empty()) return false;
    if (isSkipped()) return true;
    if (auto* members = std::get_if<std::vector<JsonMember>>(&containers_.back())) {
      members->back().value = std::move(value);
    } else {
      std::get<JsonArray>(containers_.back()).push_back(std::move(value));
    }
    return true;
  }

  JsonDepth depth_;
  std::vector<Container> containers_;
  JsonObject root_;
};

/// Every character that needs an escape is a single byte. The bytes of all others are 0x80 or more.
void appendEscaped(std::string& out, char character) {
  constexpr std::string_view plain = "\"\\\t\n\r";
  constexpr std::string_view letters = "\"\\tnr";
  constexpr std::string_view digits = "0123456789abcdef";
  constexpr unsigned char firstUnescaped = 0x20;
  const auto code = static_cast<unsigned char>(character);
  if (const std::size_t found = plain.find(character); found != std::string_view::npos) {
    out.append("\\").append(1, letters[found]);
  } else if (code < firstUnescaped) {
    out.append("\\u00").append(1, digits[code / digits.size()]);
    out.append(1, digits[code % digits.size()]);
  } else {
    out += character;
  }
}

void appendQuoted(std::string& out, std::string_view text) {
  out.append("\"").append(jsonEscape(text)).append("\"");
}

void appendCompact(std::string& out, const JsonValue& value);

void appendCompact(std::string& out, const JsonArray& array) {
  const char* separator = "";
  out += '[';
  for (const JsonValue& element : array) {
    out += std::exchange(separator, ",");
    appendCompact(out, element);
  }
  out += ']';
}

void appendCompact(std::string& out, const JsonObject& object) {
  const char* separator = "";
  out += '{';
  for (const JsonMember& member : object.members()) {
    out += std::exchange(separator, ",");
    appendQuoted(out, member.key);
    out += ':';
    appendCompact(out, member.value);
  }
  out += '}';
}

/// The recursion is bounded by `maxJsonDepth`.
void appendCompact(std::string& out, const JsonValue& value) {
  if (const auto* boolean = value.as<bool>()) {
    out += *boolean ? "true" : "false";
  } else if (const auto* number = value.as<JsonNumber>()) {
    out += numberText(*number);
  } else if (const auto* text = value.as<std::string>()) {
    appendQuoted(out, *text);
  } else if (const auto* array = value.as<JsonArray>()) {
    appendCompact(out, *array);
  } else if (const auto* object = value.as<JsonObject>()) {
    appendCompact(out, *object);
  } else {
    out += "null";
  }
}

/// Fits the longest fixed notation of a double, that of the smallest ones: "0.", 323 zeros, digits.
using NumberBuffer = std::array<char, 512>;

std::string fixedText(double number) {
  NumberBuffer buffer;
  const auto end = std::to_chars(buffer.begin(), buffer.end(), number, std::chars_format::fixed);
  return {buffer.begin(), end.ptr};
}

}  // namespace

JsonObject::JsonObject(std::vector<JsonMember> members) : members_(std::move(members)) {
  buildIndex();
  if (dropRepeatedKeys()) buildIndex();
}

bool JsonObject::precedes(const IndexEntry& left, const IndexEntry& right) const {
  if (left.hash != right.hash) return left.hash < right.hash;
  const int order = members_[left.position].key.compare(members_[right.position].key);
  return order != 0 ? order < 0 : left.position < right.position;
}

void JsonObject::buildIndex() {
  index_.resize(members_.size());
  for (std::size_t i = 0; i < members_.size(); ++i) {
    index_[i] = {std::hash<std::string>()(members_[i].key), i};
  }
  std::sort(index_.begin(), index_.end(), [this](const IndexEntry& left, const IndexEntry& right) {
    return precedes(left, right);
  });
}

/// In the index, equal keys are neighbours in the order of the text.
bool JsonObject::dropRepeatedKeys() {
  std::vector<bool> repeated(members_.size(), false);
  for (std::size_t i = 1; i < index_.size(); ++i) {
    const std::size_t earlier = index_[i - 1].position;
    if (members_[earlier].key != members_[index_[i].position].key) continue;
    repeated[earlier] = true;
  }
  if (std::find(repeated.begin(), repeated.end(), true) == repeated.end()) return false;
  std::size_t position = 0;
  std::erase_if(members_, [&](const JsonMember&) { return repeated[position++]; });
  return true;
}

const JsonValue* JsonObject::find(std::string_view key) const {
  const std::size_t hash = std::hash<std::string_view>()(key);
  const auto sought = std::lower_bound(
      index_.begin(), index_.end(), key, [&](const IndexEntry& entry, std::string_view name) {
        return entry.hash != hash ? entry.hash < hash : members_[entry.position].key < name;
      });
  if (sought == index_.end() || members_[sought->position].key != key) return nullptr;
  return &members_[sought->position].value;
}

std::string JsonObject::text(std::string_view key) const {
  const auto* found = find<std::string>(key);
  return found == nullptr ? std::string() : *found;
}

std::optional<JsonObject> parseJsonObject(std::string_view text, JsonDepth depth) {
  // The library treats a NUL as the end of the text. Valid JSON contains none.
  if (text.find('\0') != std::string_view::npos) return std::nullopt;
  try {
    TreeBuilder builder(depth);
    if (nlohmann::json::sax_parse(text.begin(), text.end(), &builder)) return builder.takeRoot();
  } catch (const std::exception&) {
    return std::nullopt;  // Not enough memory for the text.
  }
  return std::nullopt;
}

std::string jsonEscape(std::string_view text) {
  std::string escaped;
  escaped.reserve(text.size());
  for (const char character : text) appendEscaped(escaped, character);
  return escaped;
}

std::string compactJsonText(const JsonValue& value) {
  std::string text;
  appendCompact(text, value);
  return text;
}

std::string numberText(const JsonNumber& number) {
  if (const auto* fraction = std::get_if<double>(&number)) return fixedText(*fraction);
  if (const auto* natural = std::get_if<std::uint64_t>(&number)) return std::to_string(*natural);
  return std::to_string(std::get<std::int64_t>(number));
}

std::string integerPartText(const JsonNumber& number) {
  std::string text = numberText(number);
  text.resize(std::min(text.find('.'), text.size()));
  return text == "-0" ? "0" : text;
}

bool isNonZero(const JsonNumber& number) {
  return std::visit([](auto value) { return value != 0; }, number);
}

}  // namespace quillon::platform
