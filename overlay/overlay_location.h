#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/core/path.h"
#include "platform/text/json.h"

/// Where a profile's persona overlay lies and how it is read. Any thread.
namespace quillon {

/// The profile folder: what follows "--user-data-dir=" in the first argument that begins with it,
/// taken as it stands. `arguments` come without the program path. Absent when no argument has the
/// prefix; empty when nothing follows it. The switch and its value as two arguments do not count.
[[nodiscard]] std::optional<std::string> userDataDirFromArgs(
    const std::vector<std::string>& arguments);

/// "command-line.json" in the profile folder when anything of that name exists there, else the
/// user's own one below the home folder, whether it exists or not. The two are never merged.
[[nodiscard]] platform::Path overlayFileURL(const std::optional<std::string>& userDataDir);

/// The overlay's top-level object; nothing when the file cannot be read or holds no JSON object.
[[nodiscard]] std::optional<platform::JsonObject> readOverlayObject(
    const platform::Path& overlayURL);

}  // namespace quillon
