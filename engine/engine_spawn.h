#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/core/path.h"

namespace quillon {

/// Why the engine could not be started.
struct SpawnError {
  enum class Case { posixSpawn, engineMissing };

  Case kind;
  /// posixSpawn: the errno value and the system's text for it.
  std::int32_t errorNumber = 0;
  std::string errorText;
  /// engineMissing: the path that is not an executable file.
  platform::Path engine;

  [[nodiscard]] static SpawnError posixSpawn(std::int32_t errorNumber);
  [[nodiscard]] static SpawnError engineMissing(platform::Path engine);

  /// One line, for a message.
  [[nodiscard]] std::string description() const;
};

/// Starts the executable that is the first element of the argument vector, which is not empty. The
/// engine leads a new session: it outlives the launcher and has no controlling terminal. A session
/// leader can gain a terminal only by opening one, which a browser does not. Every argument is
/// passed on, even if the system then refuses to start the engine. Returns without waiting for the
/// engine: nothing if it was started. Main thread, once per launch.
[[nodiscard]] std::optional<SpawnError> spawnEngine(const std::vector<std::string>& argumentVector);

}  // namespace quillon
