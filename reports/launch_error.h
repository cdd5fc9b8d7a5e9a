#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillon {

/// Why a discovery failed. The member of an absent value is omitted, that of an empty value is not.
struct LaunchErrorRecord {
  std::string step;
  std::string errorCode;
  std::string message;
  /// As in the overlay, with the password.
  std::optional<std::string> proxy;
  std::optional<std::string> discoveryUrl;
  std::optional<std::int64_t> curlExitCode;
  std::int64_t elapsedMs = 0;
  std::string launcherVersion;
};

/// The text of the error file. Pure.
[[nodiscard]] std::string launchErrorText(const LaunchErrorRecord& record,
                                          std::string_view timestamp);

/// Replaces ".quillon-launcher-error.json" in the profile folder or, if there is none, in the
/// per-user folder. A failure is ignored. Any thread.
void writeErrorFile(const std::optional<std::string>& userDataDir, const LaunchErrorRecord& record);

/// Removes that file if it exists. Any thread.
void removeErrorFile(const std::optional<std::string>& userDataDir);

}  // namespace quillon
