#include "inspect/json_page.h"

#include <array>

#include "inspect/findings.h"
#include "platform/text/text.h"
#include "reports/report_text.h"

namespace quillon {
namespace {

JsonText jsonBool(bool value) {
  return {value ? "true" : "false"};
}

ReportValue jsonString(std::string_view text) {
  return platform::withoutInvalidBytes(text);
}

template <class Texts>
JsonText jsonStrings(const Texts& texts) {
  std::vector<ReportValue> values;
  values.reserve(texts.size());
  for (const auto& text : texts) values.push_back(jsonString(std::string(text)));
  return jsonList(values);
}

ReportValue jsonVector(const std::optional<std::vector<std::string>>& texts) {
  if (!texts) return {};
  return jsonStrings(*texts);
}

/// Null for what is not known.
ReportValue jsonPlace(std::size_t lineOrColumn) {
  if (lineOrColumn == 0) return {};
  return static_cast<std::int64_t>(lineOrColumn);
}

JsonText jsonOverlay(const LaunchPreview& preview) {
  constexpr std::array<const char*, 4> states{"read", "missing", "unreadable", "malformed"};
  const JsonFile& file = preview.host.overlay;
  const platform::JsonFault fault = file.problems.fault.value_or(platform::JsonFault());
  return jsonObject({
      {"path", jsonString(platform::absolutePath(preview.values.overlayURL).text())},
      {"state", states.at(static_cast<std::size_t>(file.state))},
      {"line", jsonPlace(fault.line)},
      {"column", jsonPlace(fault.column)},
  });
}

JsonText jsonFindings(const Findings& findings) {
  std::vector<ReportValue> values;
  for (const Finding& finding : findings) {
    values.emplace_back(jsonObject({
        {"level", std::string(nameOf(finding.level))},
        {"key", finding.key.empty() ? ReportValue() : jsonString(finding.key)},
        {"message", jsonString(finding.message)},
    }));
  }
  return jsonList(values);
}

JsonText jsonDerives(const OverlayKeys& overlay) {
  std::vector<std::string_view> keys;
  for (const Derivation& derivation : derivations) {
    if (isDerived(derivation, overlay)) keys.push_back(derivation.key.name);
  }
  return jsonStrings(keys);
}

ReportValue jsonDiscovery(const LaunchPreview& preview) {
  if (!preview.wasDiscovered) return {};
  const DiscoverResult& result = preview.outcome->result;
  return jsonObject({
      {"error_code", result.errorCode},
      {"message", result.message},
      {"ip", result.ip},
      {"country_code", result.countryCode},
      {"timezone", result.timezone},
      {"latitude", result.latitude},
      {"longitude", result.longitude},
      {"provider", preview.outcome->endpoint.provider},
      {"elapsed_ms", result.elapsedMs},
  });
}

}  // namespace

std::string jsonPage(const LaunchPreview& preview, const Findings& findings) {
  const LaunchRequest& request = preview.values.request;
  std::vector<std::string> removes;
  for (const platform::Path& path : preview.removes) removes.push_back(path.text());
  const auto status = preview.exitStatus();
  return writeJsonObject({
      {"schema", 1},
      {"mode", needsDiscovery(preview.values.request.overlay) ? "windowed" : "passthrough"},
      {"profile", request.userDataDir ? jsonString(*request.userDataDir) : ReportValue()},
      {"overlay", jsonOverlay(preview)},
      {"findings", jsonFindings(findings)},
      {"derives", jsonDerives(request.overlay)},
      {"curl", jsonVector(preview.curl())},
      {"discovery", jsonDiscovery(preview)},
      {"removes", jsonStrings(removes)},
      {"engine", jsonVector(preview.engine())},
      {"complete", jsonBool(preview.isComplete())},
      {"exit_status", status ? ReportValue(static_cast<std::int64_t>(*status)) : ReportValue()},
  });
}

}  // namespace quillon
