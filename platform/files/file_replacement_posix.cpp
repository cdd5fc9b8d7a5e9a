#include "platform/files/file_replacement.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <new>
#include <optional>
#include <string_view>
#include <utility>

#include "platform/core/descriptor.h"
#include "platform/files/files.h"
#include "platform/process/process.h"
#include "platform/process/signals.h"

namespace quillon::platform {
namespace {

/// A temporary file beside the path that it will replace.
struct UnfinishedFile {
  Path path;
  UniqueFd descriptor;
};

UniqueFd createFile(const Path& path) {
  return UniqueFd(retryInterrupted([&] {
    return ::open(path.cText(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, ownersFileMode);
  }));
}

/// The name contains the time. If two processes use the same name, O_EXCL fails for one of them,
/// and it tries the next name.
UnfinishedFile createBeside(const Path& path) {
  constexpr int attempts = 100;
  const auto now = std::chrono::system_clock::now().time_since_epoch().count();
  UnfinishedFile file;
  for (int i = 0; i < attempts && !file.descriptor.isOpen(); ++i) {
    file.path = path.text() + ".tmp." + std::to_string(now + i);
    file.descriptor = createFile(file.path);
    if (file.descriptor.isOpen() || errno == EEXIST) continue;
    if (errno != ENOENT || !createFolders(path.folder())) break;
  }
  return file;
}

bool writeAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written =
        retryInterrupted([&] { return ::write(descriptor, bytes.data(), bytes.size()); });
    if (written <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

bool hasFileSizeLimit() {
  struct rlimit limit = {};
  return ::getrlimit(RLIMIT_FSIZE, &limit) != 0 || limit.rlim_cur != RLIM_INFINITY;
}

bool writeAndClose(UniqueFd descriptor, std::string_view bytes) {
  // Makes a write beyond the limit for the size of files fail. Otherwise it would end the process.
  std::optional<SignalOverride> ignoredSignal;
  if (hasFileSizeLimit()) ignoredSignal.emplace(SIGXFSZ, SIG_IGN);
  // Restores the permissions of the owner that a umask removed. Some file systems refuse to change
  // a mode. The file then has no more permissions than it was created with.
  (void)::fchmod(descriptor.get(), ownersFileMode);
  const bool written = writeAll(descriptor.get(), bytes);
  // Some file systems report a full disk only here.
  return ::close(descriptor.release()) == 0 && written;
}

bool fill(UniqueFd descriptor, const std::function<std::string()>& makeBytes) {
  try {
    return writeAndClose(std::move(descriptor), makeBytes());
  } catch (const std::bad_alloc&) {
    return false;
  }
}

/// A folder is removed first. Any other item is replaced in one step.
bool moveOver(const Path& from, const Path& to) {
  if (::rename(from.cText(), to.cText()) == 0) return true;
  return errno == EISDIR && removeItem(to) && ::rename(from.cText(), to.cText()) == 0;
}

}  // namespace

bool replaceFile(const Path& path, const std::function<std::string()>& makeBytes) {
  const std::shared_lock delay = delayProcessEnd();
  UnfinishedFile file = createBeside(path);
  if (!file.descriptor.isOpen()) return false;
  if (fill(std::move(file.descriptor), makeBytes) && moveOver(file.path, path)) return true;
  (void)::unlink(file.path.cText());
  return false;
}

}  // namespace quillon::platform
