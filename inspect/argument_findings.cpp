#include <algorithm>
#include <array>
#include <optional>
#include <string>

#include "inspect/findings.h"
#include "overlay/overlay_location.h"

namespace quillon {
namespace {

using Arguments = std::vector<std::string>;
using Level = Finding::Level;

const Arguments& argumentsOf(const LaunchPreview& preview) {
  return preview.values.request.originalArgs;
}

/// A switch as the engine reads it: with one dash or two, and its value behind "=".
struct EngineSwitch {
  std::string name;
  std::string value;

  bool operator==(const EngineSwitch&) const = default;
};

std::optional<EngineSwitch> asSwitch(const std::string& argument) {
  const std::size_t dashes = argument.starts_with("--") ? 2 : argument.starts_with('-') ? 1 : 0;
  if (dashes == 0 || dashes == argument.size()) return std::nullopt;
  const std::size_t equals = argument.find('=');
  if (equals == std::string::npos) return EngineSwitch{argument.substr(dashes), ""};
  return EngineSwitch{argument.substr(dashes, equals - dashes), argument.substr(equals + 1)};
}

Findings loneDashes(const LaunchPreview& preview) {
  const Arguments& arguments = argumentsOf(preview);
  if (std::find(arguments.begin(), arguments.end(), "--") == arguments.end()) return {};
  return {{Level::error, "",
           "The argument \"--\" ends the engine's switches: all that the launcher adds behind the "
           "arguments, the persona's among them, is lost. Leave it out."}};
}

/// The forms of the profile folder's switch that the engine takes and the launcher does not.
Findings overlookedFolder(const LaunchPreview& preview) {
  constexpr const char* lost =
      "the engine takes it for the profile folder and the launcher does not, which then reads the "
      "overlay elsewhere and cleans nothing. Write --user-data-dir=FOLDER.";
  Findings findings;
  for (const std::string& argument : argumentsOf(preview)) {
    const auto given = asSwitch(argument);
    if (!given || given->name != "user-data-dir") continue;
    const bool hasValue = argument.find('=') != std::string::npos;
    if (hasValue && argument.starts_with("--")) continue;
    const char* form = hasValue ? " has one dash: " : " stands apart from its value: ";
    findings.push_back({Level::error, "", "The argument " + argument + form + lost});
  }
  return findings;
}

Findings severalFolders(const LaunchPreview& preview) {
  Arguments folders;
  for (const std::string& argument : argumentsOf(preview)) {
    if (const auto folder = userDataDirFromArgs({argument})) folders.push_back(*folder);
  }
  if (folders.empty() || folders.front() == folders.back()) return {};
  return {{Level::error, "",
           "--user-data-dir is given more than once: the launcher takes the first, " +
               folders.front() + ", the engine the last, " + folders.back() +
               ", which so gets another profile's persona. Keep one."}};
}

Findings namelessFolder(const LaunchPreview& preview) {
  const auto& userDataDir = preview.values.request.userDataDir;
  if (!userDataDir || !userDataDir->empty()) return {};
  return {{Level::warning, "",
           "--user-data-dir= names no folder: the overlay is looked for in the current folder, and "
           "nothing is removed. Name the profile folder."}};
}

/// What the launcher adds stands behind the caller's arguments, and the engine takes the last.
Findings overriddenSwitches(const LaunchPreview& preview) {
  const Arguments all = argumentVector(preview.plan.engineArguments);
  const Arguments& own = argumentsOf(preview);
  Findings findings;
  if (all.empty()) return findings;
  for (const std::string& argument : own) {
    if (argument == "--") break;
    const auto given = asSwitch(argument);
    const auto added = [&](const std::string& other) {
      const auto candidate = asSwitch(other);
      return given && candidate && candidate->name == given->name && *candidate != *given;
    };
    const auto overriding =
        std::find_if(all.begin() + static_cast<std::ptrdiff_t>(own.size()) + 1, all.end(), added);
    if (overriding == all.end()) continue;
    findings.push_back({Level::warning, "",
                        "The argument " + argument + " has no effect: the launcher adds " +
                            *overriding +
                            " behind it, and the engine takes the last. Leave it "
                            "out, or have the overlay say it where it can."});
  }
  return findings;
}

}  // namespace

Findings argumentFindings(const LaunchPreview& preview) {
  constexpr std::array<Check, 5> checks{loneDashes, overlookedFolder, severalFolders,
                                        namelessFolder, overriddenSwitches};
  return findWith(checks, preview);
}

}  // namespace quillon
