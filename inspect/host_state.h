#pragma once

#include <cstddef>
#include <optional>

#include "inspect/json_file.h"
#include "launcher/process_values.h"
#include "platform/files/files.h"
#include "platform/probe/argument_limits.h"

namespace quillon {

/// What a launch finds on this machine beyond what its plan contains.
struct HostState {
  enum class ProfileFolder { notNamed, missing, notAFolder, notWritable, writable };

  JsonFile overlay;
  /// The catalogue's path and content. Read only if the overlay names a WebGL profile.
  std::optional<platform::Path> catalogueURL;
  JsonFile catalogue;
  ProfileFolder profileFolder = ProfileFolder::notNamed;
  bool engineIsExecutable = false;
  bool curlIsExecutable = false;
  /// A running browser has locked the profile, or may have.
  bool profileIsInUse = false;
  /// The configuration file that curl reads by default, if there is one.
  std::optional<platform::Path> curlConfiguration;
  platform::ArgumentLimits argumentLimits{};
  /// How much of `argumentLimits.together` the environment uses.
  std::size_t environmentBytes = 0;
};

/// Reads this state and changes nothing. Any thread.
[[nodiscard]] HostState probeHost(const ProcessValues& values);

}  // namespace quillon
