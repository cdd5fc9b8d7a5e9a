#pragma once

#include <string>
#include <vector>

#include "engine/engine_arguments.h"
#include "launcher/launch_request.h"
#include "overlay/webgl_catalogue.h"
#include "platform/core/path.h"
#include "platform/files/bundle.h"

namespace quillon {

/// The values that decide one launch. The entry point reads them once; later code only reads this
/// record, from any thread.
struct ProcessValues {
  platform::Bundle bundle;
  /// The engine's own bundle inside the launcher's.
  platform::Path engineAppURL;
  /// Argument zero: the path that started the launcher. Empty if the argument vector is empty.
  std::string programPath;
  platform::Path overlayURL;
  LaunchRequest request;

  [[nodiscard]] CataloguePlaces cataloguePlaces() const { return {bundle, programPath}; }
};

/// Reads the values from the argument vector (program path first; it can be empty), the environment
/// and the overlay. `executable` is the launcher's own path. Never fails: a missing or invalid
/// value has its default.
[[nodiscard]] ProcessValues readProcessValues(const std::vector<std::string>& argumentVector,
                                              const platform::Path& executable);

/// Reads what a plan needs besides the process values: the memory and processors of this machine
/// and, if the overlay names a WebGL profile, the catalogue. Any thread.
[[nodiscard]] LaunchFacts gatherFacts(const ProcessValues& values);

}  // namespace quillon
