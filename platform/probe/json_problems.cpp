#include "platform/probe/json_problems.h"

#include <algorithm>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <utility>

#include "platform/text/json.h"

namespace quillon::platform {
namespace {

/// The position of byte number `count`, counted from 1.
JsonFault faultAt(JsonFault::Kind kind, std::string_view text, std::size_t count) {
  if (count == 0) return {kind, 0, 0};
  const std::string_view before = text.substr(0, count - 1);
  const auto line = static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n')) + 1;
  return {kind, line, before.size() - (before.rfind('\n') + 1) + 1};
}

/// Receives the parser's events. A function that returns false ends the parsing.
class ProblemFinder {
 public:
  explicit ProblemFinder(std::string_view text) : text_(text) {}

  using number_integer_t = std::int64_t;
  using number_unsigned_t = std::uint64_t;
  using number_float_t = double;
  using string_t = std::string;
  using binary_t = nlohmann::json::binary_t;

  // NOLINTBEGIN(readability-identifier-naming): the parser's names.
  bool null() { return isInside(); }
  bool boolean(bool) { return isInside(); }
  bool number_integer(std::int64_t) { return isInside(); }
  bool number_unsigned(std::uint64_t) { return isInside(); }
  bool number_float(double, const std::string&) { return isInside(); }
  bool string(std::string&) { return isInside(); }
  bool binary(binary_t&) { return isInside(); }

  bool start_object(std::size_t) { return open(); }
  bool end_object() { return close(); }
  bool start_array(std::size_t) { return isInside() && open(); }
  bool end_array() { return close(); }

  bool key(std::string& name) {
    if (depth_ == 1) addKey(name);
    if (depth_ == 2 && !innerKeys_.insert(name).second)
      problems_.repeatedKeysWithin[key_].insert(name);
    return true;
  }

  bool parse_error(std::size_t position, const std::string&, const nlohmann::json::exception&) {
    return fail(JsonFault::Kind::malformed, position);
  }
  // NOLINTEND(readability-identifier-naming)

  bool fail(JsonFault::Kind kind, std::size_t position = 0) {
    problems_.fault = faultAt(kind, text_, position);
    return false;
  }

  [[nodiscard]] JsonProblems takeProblems() { return std::move(problems_); }

 private:
  bool isInside() { return depth_ > 0 || fail(JsonFault::Kind::notAnObject); }

  bool open() {
    if (depth_ == maxJsonDepth) return fail(JsonFault::Kind::tooDeep);
    ++depth_;
    return true;
  }

  bool close() {
    --depth_;
    return true;
  }

  /// Only the last value of a repeated key is used: what an earlier one repeats does not matter.
  void addKey(const std::string& name) {
    key_ = name;
    innerKeys_.clear();
    if (keys_.insert(name).second) return;
    problems_.repeatedKeys.insert(name);
    problems_.repeatedKeysWithin.erase(name);
  }

  std::string_view text_;
  std::size_t depth_ = 0;
  /// The key of the object whose value is being parsed, and all keys so far.
  std::string key_;
  JsonProblems::Keys keys_;
  /// The keys so far of the object that is this value.
  JsonProblems::Keys innerKeys_;
  JsonProblems problems_;
};

}  // namespace

JsonProblems findJsonProblems(std::string_view text) {
  ProblemFinder finder(text);
  if (const std::size_t nul = text.find('\0'); nul != std::string_view::npos) {
    finder.fail(JsonFault::Kind::malformed, nul + 1);
  } else {
    nlohmann::json::sax_parse(text.begin(), text.end(), &finder);
  }
  return finder.takeProblems();
}

}  // namespace quillon::platform
