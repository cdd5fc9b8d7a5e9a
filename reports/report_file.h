#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "platform/core/path.h"

/// Where report files are, and how they are replaced. No shared state; any thread.
namespace quillon {

/// The file in the profile folder or, if that is absent or its name is empty, in the per-user
/// folder.
[[nodiscard]] platform::Path reportFileURL(const std::optional<std::string>& userDataDir,
                                           std::string_view fileName);

/// Replaces a report by one rename, and creates its folder if it is missing. If several launches
/// write at the same time, a reader always finds one whole report, and the last rename wins.
/// `makeText` is called once the folder exists. Returns false on any failure; then the old report
/// remains and no temporary file is left.
bool writeReportAtomically(const std::function<std::string()>& makeText, const platform::Path& url);

}  // namespace quillon
