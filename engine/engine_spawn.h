#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/override_switches.h"
#include "platform/core/path.h"

namespace quillon {

/// Why the engine could not be started.
struct SpawnError {
  enum class Case { posixSpawn, engineMissing };

  Case kind;
  /// posixSpawn: the errno value and the system's text for it.
  std::int32_t errorNumber = 0;
  std::string errorText;
  /// engineMissing: the executable that is none.
  platform::Path engine;

  [[nodiscard]] static SpawnError posixSpawn(std::int32_t errorNumber);
  [[nodiscard]] static SpawnError engineMissing(platform::Path engine);

  /// In one line, for a message.
  [[nodiscard]] std::string description() const;
};

/// The switches for remote debugging on loopback: two, or none when `cdpTcpPort` is not a decimal
/// port from 1 to 65535 or the caller's own arguments already name a port. Pure.
[[nodiscard]] SwitchList debuggingSwitches(std::string_view cdpTcpPort,
                                           const std::vector<std::string>& originalArgs);

/// The engine's whole argument vector, its own path first. A NUL ends an argument, as it ends every
/// C string. Pure.
[[nodiscard]] std::vector<std::string> engineArgumentVector(
    const platform::Path& engineBinary, const std::vector<std::string>& originalArgs,
    const SwitchList& overrideSwitches, std::string_view cdpTcpPort);

/// Starts the engine that the argument vector, which is not empty, begins with, as the leader of a
/// new session: it outlives the launcher and is detached from its terminal. As session leader it
/// may gain a terminal only by opening one, which a browser does not. Every argument is passed on,
/// also one that the system then refuses. Nobody waits for it. Main thread, once per launch.
/// Nothing on success.
[[nodiscard]] std::optional<SpawnError> spawnEngine(const std::vector<std::string>& argumentVector);

}  // namespace quillon
