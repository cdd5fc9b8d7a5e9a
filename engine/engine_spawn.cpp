#include "engine/engine_spawn.h"

#include <system_error>
#include <utility>

#include "platform/files/files.h"
#include "platform/process/spawn.h"

namespace quillon {

SpawnError SpawnError::posixSpawn(std::int32_t errorNumber) {
  return {Case::posixSpawn, errorNumber, std::system_category().message(errorNumber), {}};
}

SpawnError SpawnError::engineMissing(platform::Path engine) {
  return {Case::engineMissing, 0, {}, std::move(engine)};
}

std::string SpawnError::description() const {
  if (kind == Case::engineMissing) return "engine binary not found at " + engine.text();
  return "posix_spawn failed (errno " + std::to_string(errorNumber) + "): " + errorText;
}

std::optional<SpawnError> spawnEngine(const std::vector<std::string>& argumentVector) {
  const platform::Path engineBinary(argumentVector.front());
  if (!platform::isExecutableFile(engineBinary)) return SpawnError::engineMissing(engineBinary);
  const int error = platform::spawnInNewSession(engineBinary, argumentVector);
  if (error != 0) return SpawnError::posixSpawn(error);
  return std::nullopt;
}

}  // namespace quillon
