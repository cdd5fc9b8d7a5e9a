#pragma once

#include <string>
#include <vector>

#include "launcher/launch_request.h"
#include "overlay/webgl_catalogue.h"
#include "platform/core/path.h"
#include "platform/files/bundle.h"

namespace quillon {

/// What one launch is about: fixed by the entry point and only read afterwards, from any thread.
struct ProcessValues {
  platform::Bundle bundle;
  /// The engine's own bundle inside the launcher's.
  platform::Path engineAppURL;
  /// The path that the launcher was started by; empty when it was given none.
  std::string programPath;
  platform::Path overlayURL;
  LaunchRequest request;

  [[nodiscard]] CataloguePlaces cataloguePlaces() const { return {bundle, programPath}; }
};

/// Fixes the values from the argument vector, program path first; it may be empty. `executable` is
/// the launcher's own. Whatever is missing or malformed has its default: this never fails.
[[nodiscard]] ProcessValues readProcessValues(const std::vector<std::string>& argumentVector,
                                              const platform::Path& executable);

}  // namespace quillon
