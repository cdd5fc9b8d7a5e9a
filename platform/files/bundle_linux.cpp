#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/auxv.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>

#include "platform/core/descriptor.h"
#include "platform/files/bundle.h"

namespace quillon::platform {
namespace {

/// The path that was passed to the kernel for execution.
Path executedPath() {
  // NOLINTNEXTLINE(performance-no-int-to-ptr): the kernel passes addresses as numbers.
  const auto* const path = reinterpret_cast<const char*>(::getauxval(AT_EXECFN));
  return path == nullptr ? Path() : Path(path);
}

/// Whether the path leads from the root to the running file without a symbolic link or a dot
/// component; openat2(2). For a script the path is the script's, because its interpreter was
/// started by another name.
bool isResolved(const Path& path) {
  const auto holds = [&](const char* part) { return path.text().find(part) != std::string::npos; };
  if (!path.text().starts_with('/') || holds("/.") || holds("//")) return false;
  if (path.text() != ::program_invocation_name) return false;
  struct open_how straight = {};
  straight.flags = O_PATH | O_CLOEXEC;
  straight.resolve = RESOLVE_NO_SYMLINKS;
  const long descriptor =
      ::syscall(SYS_openat2, AT_FDCWD, path.cText(), &straight, sizeof(straight));
  return UniqueFd(static_cast<int>(descriptor)).isOpen();
}

/// The location of this process's executable, read from /proc.
Path shownExecutable() {
  std::array<char, PATH_MAX> target{};
  const ssize_t length = ::readlink("/proc/self/exe", target.data(), target.size());
  if (length <= 0 || static_cast<std::size_t>(length) == target.size()) return {};
  return std::string_view(target.data(), static_cast<std::size_t>(length));
}

}  // namespace

// The first access to a process in /proc costs more than any other system call of a launch. It is
// made only if the executed path might not be the file's real path.
Path executableLocation() {
  Path executed = executedPath();
  if (isResolved(executed)) return executed;
  Path shown = shownExecutable();
  return shown.empty() ? resolvedPath(executed) : shown;
}

}  // namespace quillon::platform
