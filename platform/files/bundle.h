#pragma once

#include "platform/core/path.h"

namespace quillon::platform {

/// The folders of an application. No file is looked at.
struct Bundle {
  /// The application folder ("Nimbra.app").
  Path location;
  /// The folder that contains its resources.
  Path resources;
};

/// The bundle of an executable. If the executable is in a folder "Contents/MacOS", the bundle is
/// the folder two levels above it, and the resources are in "Contents/Resources". Otherwise the
/// executable's folder is both.
[[nodiscard]] Bundle bundleOf(const Path& executable);

/// The running executable's real location, with symbolic links resolved, independent of the name it
/// was started by. Empty if the system does not report it.
[[nodiscard]] Path executableLocation();

}  // namespace quillon::platform
