#pragma once

#include <cstddef>
#include <optional>

#include "launcher/process_values.h"
#include "overlay/json_file.h"
#include "platform/files/files.h"
#include "platform/probe/argument_limits.h"

namespace quillon {

/// What a launch would find around it, as far as its plan does not hold it.
struct Surroundings {
  enum class ProfileFolder { notNamed, missing, notAFolder, notWritable, writable };

  JsonFile overlay;
  /// Where the catalogue is, and what is in it; read only when the overlay names a profile of it.
  std::optional<platform::Path> catalogueURL;
  JsonFile catalogue;
  ProfileFolder profileFolder = ProfileFolder::notNamed;
  bool engineIsExecutable = false;
  bool curlIsExecutable = false;
  /// A browser runs on the profile, or seems to.
  bool profileIsInUse = false;
  /// The configuration file that curl reads on its own; nothing when there is none.
  std::optional<platform::Path> curlConfiguration;
  platform::ArgumentLimits argumentLimits{};
  /// What the environment takes of them.
  std::size_t environmentBytes = 0;
};

/// Looks at them and changes nothing. Any thread.
[[nodiscard]] Surroundings lookAround(const ProcessValues& values);

}  // namespace quillon
