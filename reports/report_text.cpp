#include "reports/report_text.h"

#include <algorithm>

#include "platform/text/json.h"

namespace quillon {
namespace {

void appendQuoted(std::string& out, std::string_view text) {
  out += '"';
  out += platform::jsonEscape(text);
  out += '"';
}

void appendValue(std::string& out, const ReportValue& value) {
  if (const auto* text = std::get_if<std::string>(&value)) {
    appendQuoted(out, *text);
  } else if (const auto* number = std::get_if<std::int64_t>(&value)) {
    out += std::to_string(*number);
  } else if (const auto* json = std::get_if<JsonText>(&value)) {
    out += json->text;
  } else {
    out += "null";
  }
}

void appendDigits(std::string& out, unsigned value, std::size_t width) {
  const std::string digits = std::to_string(value);
  out.append(width - std::min(width, digits.size()), '0').append(digits);
}

}  // namespace

JsonText jsonObject(const std::vector<ReportMember>& members) {
  const char* separator = "";
  std::string text("{");
  for (const auto& [key, value] : members) {
    text += std::exchange(separator, ",");
    appendQuoted(text, key);
    text += ':';
    appendValue(text, value);
  }
  return {text + "}"};
}

JsonText jsonList(const std::vector<ReportValue>& values) {
  const char* separator = "";
  std::string text("[");
  for (const ReportValue& value : values) {
    text += std::exchange(separator, ",");
    appendValue(text, value);
  }
  return {text + "]"};
}

std::string writeJsonObject(const std::vector<ReportMember>& members) {
  return jsonObject(members).text + "\n";
}

std::string timestampText(std::chrono::system_clock::time_point instant) {
  using namespace std::chrono;
  // Without the C library's functions: they read the time zone file even for UTC, and loading its
  // formatted output takes longer than writing the rest of a report.
  const auto day = floor<days>(instant);
  const year_month_day date(day);
  const hh_mm_ss time(floor<seconds>(instant - day));
  std::string text;
  appendDigits(text, static_cast<unsigned>(static_cast<int>(date.year())), 4);
  text += '-';
  appendDigits(text, static_cast<unsigned>(date.month()), 2);
  text += '-';
  appendDigits(text, static_cast<unsigned>(date.day()), 2);
  text += 'T';
  appendDigits(text, static_cast<unsigned>(time.hours().count()), 2);
  text += ':';
  appendDigits(text, static_cast<unsigned>(time.minutes().count()), 2);
  text += ':';
  appendDigits(text, static_cast<unsigned>(time.seconds().count()), 2);
  return text + 'Z';
}

std::string reportTimestamp() {
  return timestampText(std::chrono::system_clock::now());
}

}  // namespace quillon
