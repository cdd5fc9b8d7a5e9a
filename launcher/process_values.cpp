#include "launcher/process_values.h"

#include <cassert>
#include <memory>

#include "discovery/persona.h"
#include "launcher/engine_location.h"
#include "overlay/overlay_file.h"

namespace quillon {
namespace {

/// Never destroyed: a background thread may read it while the process ends.
const ProcessValues* current = nullptr;

}  // namespace

const ProcessValues& processValues() {
  assert(current != nullptr);
  return *current;
}

const ProcessValues& fixProcessValues(const std::vector<std::string>& argumentVector) {
  auto values = std::make_unique<ProcessValues>();
  values->bundle = platform::bundleOf(platform::executableLocation());
  values->engineAppURL = values->bundle.location / "Contents/Frameworks/Nimbra Engine.app";
  values->engineBinary = locateEngineBinary(values->engineAppURL);
  if (!argumentVector.empty()) {
    values->programPath = argumentVector.front();
    values->originalArgs.assign(argumentVector.begin() + 1, argumentVector.end());
  }
  values->userDataDir = userDataDirFromArgs(values->originalArgs);
  values->overlayURL = overlayFileURL(values->userDataDir);
  values->overlay = loadOverlayKeys(values->overlayURL);
  values->needsWindow = needsDiscovery(values->overlay);
  current = values.release();
  return *current;
}

}  // namespace quillon
