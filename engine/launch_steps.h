#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/override_switches.h"
#include "overlay/overlay_keys.h"
#include "platform/files/files.h"

/// The steps that a launch with a window and one without share. Main thread.
namespace quillon {

/// What this machine tells about itself.
[[nodiscard]] Machine thisMachine();

/// Removes from the profile what the overlay wants removed; nothing without a profile folder.
void cleanProfile(const OverlayKeys& overlay, const std::optional<std::string>& userDataDir);

/// Starts the engine and ends the process: with status 0, or by the fatal report.
[[noreturn]] void startEngineAndLeave(const platform::Path& engineBinary,
                                      const std::vector<std::string>& originalArgs,
                                      const SwitchList& overrideSwitches,
                                      std::string_view cdpTcpPort);

}  // namespace quillon
