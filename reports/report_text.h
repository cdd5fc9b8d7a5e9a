#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

/// The text of the report files: one JSON object on one line, members in the given order, no white
/// space between tokens, a line feed at the end. Any thread.
namespace quillon {

/// A value that is already JSON text: an object in an object, a list, true or false.
struct JsonText {
  std::string text;
};

/// The value of a member. std::monostate is written as null.
using ReportValue = std::variant<std::monostate, std::string, std::int64_t, JsonText>;
using ReportMember = std::pair<std::string_view, ReportValue>;

/// The members as one JSON object, without a line feed.
[[nodiscard]] JsonText jsonObject(const std::vector<ReportMember>& members);

/// The values as one JSON list.
[[nodiscard]] JsonText jsonList(const std::vector<ReportValue>& values);

/// The report text of the members: the object and a line feed.
[[nodiscard]] std::string writeJsonObject(const std::vector<ReportMember>& members);

/// An instant as ISO 8601 in UTC without fractions: 2026-03-01T14:05:09Z.
[[nodiscard]] std::string timestampText(std::chrono::system_clock::time_point instant);

/// The current time in the same form.
[[nodiscard]] std::string reportTimestamp();

}  // namespace quillon
