#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/core/path.h"
#include "platform/text/json.h"

/// Which overlay file a launch uses. Any thread.
namespace quillon {

/// An overlay file that was read.
struct OverlayFile {
  platform::Path overlayURL;
  /// Nothing if the file is missing, unreadable or contains no JSON object.
  std::optional<platform::JsonObject> object;
};

/// The profile folder: the text after "--user-data-dir=" in the first of the `arguments` that
/// starts with it, unchanged. `arguments` do not contain the program path. Nothing if no argument
/// has this prefix; empty if no text follows it. "--user-data-dir" and the folder as two arguments
/// are not recognized.
[[nodiscard]] std::optional<std::string> userDataDirFromArgs(
    const std::vector<std::string>& arguments);

/// "Library/Application Support/Quillon" in the home folder: the place of the overlay and the
/// reports of a launch without a profile folder. It need not exist.
[[nodiscard]] platform::Path perUserFolder();

/// Reads "command-line.json" in the profile folder if a file or folder of that name exists there,
/// else in the per-user folder, where it need not exist. The two files are never merged.
[[nodiscard]] OverlayFile readOverlayFile(const std::optional<std::string>& userDataDir);

/// The overlay's top-level object. Nothing if the file is unreadable or contains no JSON object.
[[nodiscard]] std::optional<platform::JsonObject> readOverlayObject(
    const platform::Path& overlayURL);

}  // namespace quillon
