#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "discovery/persona.h"
#include "overlay/overlay_keys.h"

/// The engine switches that the persona adds to the launcher's own arguments. Pure; any thread.
namespace quillon {

/// Engine arguments in the order in which the engine gets them.
using SwitchList = std::vector<std::string>;

/// What the persona tells of the machine.
struct Machine {
  /// Bytes; 0 when unknown.
  std::uint64_t physicalMemory = 0;
  /// 0 when unknown.
  int activeProcessorCount = 0;
};

/// Adds "--name=value", unless the value is empty, as it is when it begins with a NUL: a NUL ends
/// an argument. Nothing is quoted or escaped.
void appendSwitch(SwitchList& switches, std::string_view name, std::string_view value);

/// The memory class of a machine of so many bytes, as browsers report it, in GiB: 1, 2, 4, 8, 16 or
/// 32. Nothing for unknown memory.
[[nodiscard]] std::optional<std::string> deviceMemoryValue(std::uint64_t physicalMemory);

/// The switches for what was derived from the exit address.
[[nodiscard]] SwitchList personaSwitches(const OverlayKeys& overlay,
                                         const ResolvedPersona& persona);

/// The machine's memory class, its processors and the voices, except those that the overlay sets.
[[nodiscard]] SwitchList machineSwitches(const OverlayKeys& overlay, const Machine& machine);

}  // namespace quillon
