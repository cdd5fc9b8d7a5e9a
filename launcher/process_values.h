#pragma once

#include <optional>
#include <string>
#include <vector>

#include "overlay/overlay_keys.h"
#include "overlay/webgl_catalogue.h"
#include "platform/files/bundle.h"
#include "platform/files/files.h"

namespace quillon {

/// Written into every report.
inline constexpr const char* launcherVersion = "0.30.0-mac";

/// What one launch is about: fixed by the entry point, in this order, and only read afterwards,
/// from any thread.
struct ProcessValues {
  platform::Bundle bundle;
  /// The engine's own bundle inside the launcher's.
  platform::Path engineAppURL;
  platform::Path engineBinary;
  /// The path that the launcher was started by; empty when it was given none.
  std::string programPath;
  /// The arguments without the program path, as they came: not necessarily UTF-8.
  std::vector<std::string> originalArgs;
  /// The profile folder; absent when no argument names one, empty when one names nothing.
  std::optional<std::string> userDataDir;
  platform::Path overlayURL;
  OverlayKeys overlay;
  bool needsWindow = false;

  [[nodiscard]] CataloguePlaces cataloguePlaces() const { return {bundle, programPath}; }
};

/// The values of this process. They must have been fixed.
[[nodiscard]] const ProcessValues& processValues();

/// Fixes them from the argument vector, program path first; it may be empty. Main thread, first of
/// all. Whatever is missing or malformed has its default: this never fails.
const ProcessValues& fixProcessValues(const std::vector<std::string>& argumentVector);

}  // namespace quillon
