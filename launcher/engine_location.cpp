#include "launcher/engine_location.h"

#include "platform/process/environment.h"

namespace quillon {

platform::Path locateEngineBinary(const platform::Path& engineAppURL) {
  const auto named = platform::startEnvironment().value("QUILLON_ENGINE_BIN");
  if (!named || named->empty()) return engineAppURL / "Contents/MacOS/Nimbra Engine";
  return platform::absolutePath(*named);
}

}  // namespace quillon
