#pragma once

#include <functional>
#include <string>

#include "platform/core/path.h"

namespace quillon::platform {

/// Puts a file at `path` in the place of what stands there: a file, a link as such, or a folder
/// with all below it. Missing parent folders are created. The bytes grow in a file of its own
/// beside `path`, which is renamed over it once complete: no reader and no other writer ever sees a
/// part, nor a moment without a file where there was one. Only its owner may read it, whatever the
/// umask.
///
/// `makeBytes` is called once the new file is there to take them. False on any failure; then what
/// stood at `path` still stands, but for parts of a folder, and nothing is left over. Only a
/// process that is killed in the middle leaves the unfinished file; `endProcess` waits. If the
/// process has a limit for the size of files, SIGXFSZ is ignored during the call. No protection
/// against a power cut. Any thread.
[[nodiscard]] bool replaceFile(const Path& path, const std::function<std::string()>& makeBytes);

}  // namespace quillon::platform
