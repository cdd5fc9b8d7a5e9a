#include "launcher/process_values.h"

#include <utility>

#include "launcher/engine_location.h"
#include "overlay/overlay_location.h"
#include "platform/host/host.h"

namespace quillon {

ProcessValues readProcessValues(const std::vector<std::string>& argumentVector,
                                const platform::Path& executable) {
  ProcessValues values;
  LaunchRequest& request = values.request;
  values.bundle = platform::bundleOf(executable);
  values.engineAppURL = values.bundle.location / "Contents/Frameworks/Nimbra Engine.app";
  request.engineBinary = locateEngineBinary(values.engineAppURL);
  if (!argumentVector.empty()) {
    values.programPath = argumentVector.front();
    request.originalArgs.assign(argumentVector.begin() + 1, argumentVector.end());
  }
  request.userDataDir = userDataDirFromArgs(request.originalArgs);
  OverlayFile overlay = readOverlayFile(request.userDataDir);
  values.overlayURL = std::move(overlay.overlayURL);
  request.overlay = loadOverlayKeys(overlay.object);
  return values;
}

LaunchFacts gatherFacts(const ProcessValues& values) {
  const OverlayKeys& overlay = values.request.overlay;
  return {{overlay.deviceMemorySet ? 0 : platform::physicalMemory(),
           overlay.hardwareConcurrencySet ? 0 : platform::activeProcessorCount()},
          webglProfileSwitches(overlay.webglProfile, values.cataloguePlaces())};
}

}  // namespace quillon
