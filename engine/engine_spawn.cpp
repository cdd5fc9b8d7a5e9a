#include "engine/engine_spawn.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <system_error>
#include <utility>

#include "platform/files/files.h"
#include "platform/process/spawn.h"
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
  // from_chars takes a minus sign but no plus sign.
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

bool namesDebuggingPort(std::string_view argument) {
  if (!argument.starts_with(debuggingPortSwitch)) return false;
  argument.remove_prefix(debuggingPortSwitch.size());
  return argument.empty() || argument.starts_with('=');
}

}  // namespace

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

SwitchList debuggingSwitches(std::string_view cdpTcpPort,
                             const std::vector<std::string>& originalArgs) {
  constexpr std::int64_t highestPort = 65535;
  const auto port = parseDecimal(cdpTcpPort);
  if (!port || *port < 1 || *port > highestPort) return {};
  if (std::any_of(originalArgs.begin(), originalArgs.end(), namesDebuggingPort)) return {};
  return {std::string(debuggingPortSwitch) + "=" + std::to_string(*port),
          "--remote-debugging-address=127.0.0.1"};
}

std::vector<std::string> engineArgumentVector(const platform::Path& engineBinary,
                                              const std::vector<std::string>& originalArgs,
                                              const SwitchList& overrideSwitches,
                                              std::string_view cdpTcpPort) {
  std::vector<std::string> arguments{engineBinary.text()};
  const auto append = [&](const auto& more) {
    for (const std::string_view argument : more) {
      arguments.emplace_back(platform::truncatedAtNul(argument));
    }
  };
  append(originalArgs);
  append(overrideSwitches);
  append(baseSwitches);
  append(debuggingSwitches(cdpTcpPort, originalArgs));
  return arguments;
}

std::optional<SpawnError> spawnEngine(const std::vector<std::string>& argumentVector) {
  const platform::Path engineBinary(argumentVector.front());
  if (!platform::isExecutableFile(engineBinary)) return SpawnError::engineMissing(engineBinary);
  const int error = platform::spawnInNewSession(engineBinary, argumentVector);
  if (error != 0) return SpawnError::posixSpawn(error);
  return std::nullopt;
}

}  // namespace quillon
