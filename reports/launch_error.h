#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillon {

/// Why a discovery failed. An absent value leaves its member out; an empty one does not.
struct LaunchErrorRecord {
  std::string step;
  std::string errorCode;
  std::string message;
  /// As the overlay has it, password included.
  std::optional<std::string> proxy;
  std::optional<std::string> discoveryUrl;
  std::optional<std::int64_t> curlExitCode;
  std::int64_t elapsedMs = 0;
  std::string launcherVersion;
};

/// The text of the error file. Pure.
[[nodiscard]] std::string launchErrorText(const LaunchErrorRecord& record,
                                          std::string_view timestamp);

/// Replaces ".quillon-launcher-error.json" in the profile folder, or in the user's own folder
/// without one. A failure is passed over. Any thread.
void writeErrorFile(const std::optional<std::string>& userDataDir, const LaunchErrorRecord& record);

/// Removes that file; it need not be there. Any thread.
void removeErrorFile(const std::optional<std::string>& userDataDir);

}  // namespace quillon
