#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "discovery/persona.h"
#include "overlay/overlay_keys.h"

/// The engine's switches for the persona and for the machine. A switch for which the overlay has a
/// key has the name of that key. Pure; any thread.
namespace quillon {

/// Engine arguments, in order.
using SwitchList = std::vector<std::string>;

/// The machine's properties that websites can read.
struct Machine {
  /// In bytes; 0 if unknown.
  std::uint64_t physicalMemory = 0;
  /// 0 if unknown.
  int activeProcessorCount = 0;
};

/// Adds "--name=value" unless the value is empty or begins with a NUL, which ends an argument.
/// Nothing is quoted or escaped.
void appendSwitch(SwitchList& switches, std::string_view name, std::string_view value);

/// The memory class that browsers report for a machine with this many bytes of memory, in GiB: 1,
/// 2, 4, 8, 16 or 32. Nothing if the memory is unknown.
[[nodiscard]] std::optional<std::string> deviceMemoryValue(std::uint64_t physicalMemory);

/// The switches for the values derived from the egress address.
[[nodiscard]] SwitchList personaSwitches(const OverlayKeys& overlay,
                                         const ResolvedPersona& persona);

/// The machine's memory class, its processors and the voices, except those that the overlay sets.
[[nodiscard]] SwitchList machineSwitches(const OverlayKeys& overlay, const Machine& machine);

}  // namespace quillon
