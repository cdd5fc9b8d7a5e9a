// Any text through a report, read back by the JSON reader.

#include <string>

#include "platform/text/json.h"
#include "platform/text/text.h"
#include "reports/launch_error.h"
#include "reports/launch_result.h"
#include "reports/report_text.h"
#include "tools/fuzz/require.h"

using namespace quillon;
using fuzz::require;

namespace {

void checkReport(const std::string& report, std::string_view key, const std::string& text) {
  require(report.find('\n') == report.size() - 1);
  const auto object = platform::parseJsonObject(report);
  require(object.has_value());
  const auto* value = object->find<std::string>(key);
  require(value != nullptr && *value == text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  require(jsonEscape(text).size() >= size);
  // The reader takes UTF-8 only; every text that the launcher reports is.
  if (!platform::isValidUtf8(text)) return 0;
  LaunchResultRecord result;
  result.timezone = text;
  checkReport(launchResultText(result, "2026-03-01T14:05:09Z"), "timezone", text);
  LaunchErrorRecord error;
  error.proxy = text;
  checkReport(launchErrorText(error, "2026-03-01T14:05:09Z"), "proxy", text);
  return 0;
}
