#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillon {

/// The outcome of a launch. Addresses, coordinates and time zones are text.
struct LaunchResultRecord {
  /// "passthrough", "ok" or "blocked".
  std::string status;
  std::string ip;
  std::string countryCode;
  std::string provider;
  std::string timezone;
  std::int64_t elapsedMs = 0;
  std::string lat;
  std::string lng;
  std::string lang;
  std::string acceptLang;
  std::string errorCode;
  std::string message;
  std::string launcherVersion;
};

/// The text of the result file: always the same 15 members in the same order. Pure.
[[nodiscard]] std::string launchResultText(const LaunchResultRecord& record,
                                           std::string_view timestamp);

/// Replaces ".quillon-launcher-result.json" in the profile folder or, if there is none, in the
/// per-user folder. A failure is ignored. Any thread.
void writeResultFile(const std::optional<std::string>& userDataDir,
                     const LaunchResultRecord& record);

}  // namespace quillon
