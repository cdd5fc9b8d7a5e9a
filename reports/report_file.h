#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "platform/core/path.h"

/// Where report files lie and how one is replaced. No shared state; any thread.
namespace quillon {

/// The file in the profile folder, or in the user's own folder when there is no profile folder or
/// its name is empty.
[[nodiscard]] platform::Path reportFileURL(const std::optional<std::string>& userDataDir,
                                           std::string_view fileName);

/// Replaces a report as a whole, by one rename, and creates its folder when it is missing: of any
/// number of launches at the same instant a reader finds the report of one, and the last to end
/// leaves its own. `makeText` is called once the folder is there. False on any failure; then the
/// old report is still there and nothing is left over.
bool writeReportAtomically(const std::function<std::string()>& makeText, const platform::Path& url);

}  // namespace quillon
