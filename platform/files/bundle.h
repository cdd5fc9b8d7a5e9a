#pragma once

#include "platform/core/path.h"

namespace quillon::platform {

/// The folders of an application. No file is looked at.
struct Bundle {
  /// The application folder ("Nimbra.app").
  Path location;
  /// The folder with its resources.
  Path resources;
};

/// The bundle an executable belongs to: for one in a folder "Contents/MacOS" the folder two levels
/// above it, with the resources in "Contents/Resources"; for any other its own folder is both.
[[nodiscard]] Bundle bundleOf(const Path& executable);

/// The running executable's real location, links resolved, whatever name it was started under;
/// empty when the system does not tell.
[[nodiscard]] Path executableLocation();

}  // namespace quillon::platform
