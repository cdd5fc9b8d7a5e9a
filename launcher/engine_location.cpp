#include "launcher/engine_location.h"

#include <system_error>

#include "platform/system/environment.h"

namespace quillon {

platform::Path locateEngineBinary(const platform::Path& engineAppURL) {
  const auto named = platform::startEnvironment().value("QUILLON_ENGINE_BIN");
  if (!named || named->empty()) return engineAppURL / "Contents/MacOS/Nimbra Engine";
  platform::Path path(*named);
  if (path.is_absolute()) return path;
  std::error_code error;
  platform::Path absolute = std::filesystem::absolute(path, error);
  // Without a current folder nothing relative can be found anyway.
  return error ? path : absolute;
}

}  // namespace quillon
