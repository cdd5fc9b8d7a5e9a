#include "engine/override_switches.h"

#include <array>

#include "platform/text/text.h"

namespace quillon {

void appendSwitch(SwitchList& switches, std::string_view name, std::string_view value) {
  if (platform::truncatedAtNul(value).empty()) return;
  switches.push_back(std::string("--").append(name).append("=").append(value));
}

std::optional<std::string> deviceMemoryValue(std::uint64_t physicalMemory) {
  struct MemoryClass {
    double gibibytes;
    const char* value;
  };
  // Systems report less than the installed memory, so each bound is below its class.
  constexpr std::array<MemoryClass, 6> classes{
      {{24, "32"}, {12, "16"}, {6, "8"}, {3, "4"}, {1.5, "2"}, {0, "1"}}};
  constexpr double bytesPerGibibyte = 1073741824;
  if (physicalMemory == 0) return std::nullopt;
  const double gibibytes = static_cast<double>(physicalMemory) / bytesPerGibibyte;
  const auto* memoryClass = classes.begin();
  while (gibibytes < memoryClass->gibibytes) ++memoryClass;
  return memoryClass->value;
}

SwitchList personaSwitches(const OverlayKeys& overlay, const ResolvedPersona& persona) {
  SwitchList switches;
  appendSwitch(switches, overlayKey("webrtc-fake-public-ip").name, persona.resolvedFakeIP);
  if (overlay.webrtcNoLeak) switches.emplace_back("--force-webrtc-ip-handling-policy=default");
  appendSwitch(switches, overlayKey("timezone-override").name, persona.resolvedTZ);
  appendSwitch(switches, overlayKey("lang").name, persona.resolvedLang);
  appendSwitch(switches, overlayKey("accept-language").name, persona.resolvedAcceptLang);
  appendSwitch(switches, overlayKey("geo-lat").name, persona.resolvedGeoLat);
  appendSwitch(switches, overlayKey("geo-lng").name, persona.resolvedGeoLng);
  if (!persona.resolvedGeoLat.empty() && !persona.resolvedGeoLng.empty()) {
    switches.emplace_back("--geo-accuracy=100");
  }
  return switches;
}

SwitchList machineSwitches(const OverlayKeys& overlay, const Machine& machine) {
  SwitchList switches;
  if (!overlay.deviceMemorySet) {
    appendSwitch(switches, overlayKey("device-memory").name,
                 deviceMemoryValue(machine.physicalMemory).value_or(""));
  }
  if (!overlay.hardwareConcurrencySet && machine.activeProcessorCount > 0) {
    appendSwitch(switches, overlayKey("hardware-concurrency").name,
                 std::to_string(machine.activeProcessorCount));
  }
  if (!overlay.speechVoicesSet) appendSwitch(switches, "speech-voices-preset", "stock-chrome-mac");
  return switches;
}

}  // namespace quillon
