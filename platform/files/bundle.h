#pragma once

#include <optional>
#include <string_view>

#include "platform/core/path.h"

namespace quillon::platform {

/// Where an application lives. Pure values, no file is looked at but by `findResource`.
struct Bundle {
  /// The application folder ("Nimbra.app").
  Path location;
  /// The folder with its resources.
  Path resources;

  /// The resource file of that name; nothing when there is none.
  [[nodiscard]] std::optional<Path> findResource(std::string_view fileName) const;
};

/// The bundle an executable belongs to: for one in a folder "Contents/MacOS" the folder two levels
/// above it, with the resources in "Contents/Resources"; for any other its own folder is both.
[[nodiscard]] Bundle bundleOf(const Path& executable);

/// The running executable's real location, links resolved, whatever name it was started under;
/// empty when the system does not tell.
[[nodiscard]] Path executableLocation();

}  // namespace quillon::platform
