#include "engine/engine_arguments.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <optional>
#include <system_error>

#include "platform/text/text.h"

namespace quillon {
namespace {

constexpr std::string_view debuggingPortSwitch = "--remote-debugging-port";

constexpr std::array<const char*, 3> baseSwitches{
    "--hide-crash-restore-bubble",
    "--disable-features=PasswordManagerOnboarding,AutofillEnableAccountWalletStorage",
    "--disable-save-password-bubble",
};

std::optional<std::int64_t> parseDecimal(std::string_view text) {
  // from_chars accepts a minus sign but no plus sign.
  if (text.starts_with('+')) {
    text.remove_prefix(1);
    if (text.starts_with('-')) return std::nullopt;
  }
  std::int64_t value = 0;
  const char* const end = text.data() + text.size();
  const auto [parsed, error] = std::from_chars(text.data(), end, value);
  if (error != std::errc() || parsed != end) return std::nullopt;
  return value;
}

bool setsDebuggingPort(std::string_view argument) {
  if (!argument.starts_with(debuggingPortSwitch)) return false;
  argument.remove_prefix(debuggingPortSwitch.size());
  return argument.empty() || argument.starts_with('=');
}

EngineArgument startPage(const OverlayKeys& overlay) {
  if (!platform::truncatedAtNul(overlay.startPage).empty()) {
    return {ArgumentOrigin::persona, overlay.startPage};
  }
  return {ArgumentOrigin::launcher, "chrome://version"};
}

}  // namespace

SwitchList debuggingSwitches(std::string_view cdpTcpPort,
                             const std::vector<std::string>& originalArgs) {
  constexpr std::int64_t highestPort = 65535;
  const auto port = parseDecimal(cdpTcpPort);
  if (!port || *port < 1 || *port > highestPort) return {};
  if (std::any_of(originalArgs.begin(), originalArgs.end(), setsDebuggingPort)) return {};
  return {std::string(debuggingPortSwitch) + "=" + std::to_string(*port),
          "--remote-debugging-address=127.0.0.1"};
}

EngineArguments engineArguments(const platform::Path& engineBinary,
                                const std::vector<std::string>& originalArgs,
                                const OverlayKeys& overlay, const LaunchFacts& facts,
                                const ResolvedPersona* derived) {
  using enum ArgumentOrigin;
  EngineArguments arguments{{engine, engineBinary.text()}};
  const auto add = [&](ArgumentOrigin origin, const auto& texts) {
    for (const auto& text : texts) arguments.push_back({origin, text});
  };
  add(caller, originalArgs);
  add(catalogue, facts.webglSwitches);
  if (derived != nullptr) add(persona, personaSwitches(overlay, *derived));
  add(machine, machineSwitches(overlay, facts.machine));
  arguments.push_back(startPage(overlay));
  add(launcher, baseSwitches);
  add(persona, debuggingSwitches(overlay.cdpTcpPort, originalArgs));
  return arguments;
}

std::vector<std::string> argumentVector(const EngineArguments& arguments) {
  std::vector<std::string> vector;
  vector.reserve(arguments.size());
  for (const EngineArgument& argument : arguments) {
    vector.emplace_back(platform::truncatedAtNul(argument.text));
  }
  return vector;
}

}  // namespace quillon
