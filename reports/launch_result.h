#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillon {

/// What a launch came to. Addresses, coordinates and time zones travel as text.
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

/// The text of the result file: always the same fifteen members in the same order. Pure.
[[nodiscard]] std::string launchResultText(const LaunchResultRecord& record,
                                           std::string_view timestamp);

/// Replaces ".quillon-launcher-result.json" in the profile folder, or in the user's own folder
/// without one. A failure is passed over. Any thread.
void writeResultFile(const std::optional<std::string>& userDataDir,
                     const LaunchResultRecord& record);

}  // namespace quillon
