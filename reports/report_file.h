#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "platform/files/files.h"

/// Where report files lie and how one is replaced. No shared state; any thread.
namespace quillon {

/// The file in the profile folder, or in the user's own folder when there is no profile folder or
/// its name is empty.
[[nodiscard]] platform::Path reportFileURL(const std::optional<std::string>& userDataDir,
                                           std::string_view fileName);

/// Replaces a report as a whole and creates its folder when it is missing. `makeText` is called
/// once the folder is there. Whatever stands at `url` is removed just before the new report takes
/// its place, so for a moment there is none, but never a part of one. False on any failure; then
/// the old report is still there, unless only the very last step failed, and nothing is left over.
/// Of two processes replacing the same report at once either may fail this way.
bool writeReportAtomically(const std::function<std::string()>& makeText, const platform::Path& url);

}  // namespace quillon
