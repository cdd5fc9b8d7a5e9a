#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "discovery/persona.h"
#include "engine/override_switches.h"
#include "overlay/overlay_keys.h"
#include "platform/core/path.h"

/// The engine's whole argument vector, in order. Pure; any thread.
namespace quillon {

/// Who sets an argument. `engine` is the engine's own path, argument zero.
enum class ArgumentOrigin { engine, caller, catalogue, persona, machine, launcher };

struct EngineArgument {
  ArgumentOrigin origin;
  /// The whole text: a value of the overlay, the catalogue or the endpoint can contain a NUL.
  std::string text;
};

using EngineArguments = std::vector<EngineArgument>;

/// What the arguments depend on besides the caller's arguments and the overlay.
struct LaunchFacts {
  Machine machine;
  /// The switches of the WebGL profile that the overlay names.
  SwitchList webglSwitches;
};

/// The switches for remote debugging on loopback: two, or none if `cdpTcpPort` is not a decimal
/// port from 1 to 65535 or the caller's arguments already set a port.
[[nodiscard]] SwitchList debuggingSwitches(std::string_view cdpTcpPort,
                                           const std::vector<std::string>& originalArgs);

/// All arguments of the engine. `derived` is null if there was no discovery.
[[nodiscard]] EngineArguments engineArguments(const platform::Path& engineBinary,
                                              const std::vector<std::string>& originalArgs,
                                              const OverlayKeys& overlay, const LaunchFacts& facts,
                                              const ResolvedPersona* derived);

/// The texts as the engine receives them: a NUL ends an argument, as it ends every C string.
[[nodiscard]] std::vector<std::string> argumentVector(const EngineArguments& arguments);

}  // namespace quillon
