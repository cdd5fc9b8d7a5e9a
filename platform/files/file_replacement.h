#pragma once

#include <functional>
#include <string>

#include "platform/core/path.h"

namespace quillon::platform {

/// Creates a file at `path` and replaces what is there: a file, a symbolic link (not its target),
/// or a folder with its contents. Missing parent folders are created. The bytes are written to a
/// temporary file beside `path`, which is renamed over `path` when it is complete. No reader and no
/// other writer sees an incomplete file, or a moment without a file if there was one. Only the
/// owner may read the file, regardless of the umask.
///
/// `makeBytes` is called after the temporary file is created. Returns false on any failure. Then
/// the item at `path` is unchanged, except that parts of a folder may be removed, and no temporary
/// file is left. A temporary file is left only if the process is killed during the call;
/// `endProcess` waits for the call. If the process has a limit for the size of files, SIGXFSZ is
/// ignored during the call. There is no protection against a power failure. Any thread.
[[nodiscard]] bool replaceFile(const Path& path, const std::function<std::string()>& makeBytes);

}  // namespace quillon::platform
