#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "inspect/host_state.h"
#include "launcher/launch_plan.h"
#include "launcher/process_values.h"

namespace quillon {

/// Stands for a value that only a discovery tells.
inline constexpr std::string_view unknownValue = "?";

/// What a launch would do, and what was looked at to tell.
struct LaunchPreview {
  enum class EngineStart { succeeds, notWanted, missing, tooLong };

  ProcessValues values;
  LaunchFacts facts;
  HostState host;
  /// The discovery that was asked for, or one that fails before curl is started.
  std::optional<DiscoveryOutcome> outcome;
  /// Whether the discovery was asked for.
  bool wasDiscovered = false;
  /// With `unknownValue` for what a successful discovery would give when there was none.
  LaunchPlan plan;
  /// What the plan would remove and exists: absolute paths, none inside another.
  std::vector<platform::Path> removes;
  /// Links in the profile behind which the plan would remove something, and the launch does not.
  std::vector<platform::Path> skippedSymlinks;
  /// Mount points in the profile: what the plan would remove in them, the launch does not.
  std::vector<platform::Path> skippedMounts;

  /// Whether nothing in the plan is unknown.
  [[nodiscard]] bool isComplete() const {
    return !needsDiscovery(values.request.overlay) || outcome.has_value();
  }
  [[nodiscard]] EngineStart engineStart() const;
  /// The engine's argument vector; nothing when none would be started.
  [[nodiscard]] std::optional<std::vector<std::string>> engine() const;
  /// The launcher's; nothing when only a discovery would tell.
  [[nodiscard]] std::optional<ExitStatus> exitStatus() const;
  /// curl's argument vector for the first attempt; nothing when none would be made.
  [[nodiscard]] std::optional<std::vector<std::string>> curl() const;
};

/// Makes the plan of a launch with these arguments (without the program path) by the launcher at
/// `launcher`. Changes nothing. Starts no process but curl, and that only for `discover`; blocks
/// while it runs. Main thread.
[[nodiscard]] LaunchPreview previewLaunch(const platform::Path& launcher,
                                          const std::vector<std::string>& arguments, bool discover);

}  // namespace quillon
