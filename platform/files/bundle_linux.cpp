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

/// The path that the kernel was told to execute.
Path executedPath() {
  // NOLINTNEXTLINE(performance-no-int-to-ptr): the kernel hands addresses over as numbers.
  const auto* const path = reinterpret_cast<const char*>(::getauxval(AT_EXECFN));
  return path == nullptr ? Path() : Path(path);
}

/// Whether the path leads from the root to the file that runs, without a link or a dot to follow;
/// openat2(2). A script's is that of the script: its interpreter was started by another name.
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

/// What the system says about this process, where it shows its processes.
Path shownExecutable() {
  std::array<char, PATH_MAX> target{};
  const ssize_t length = ::readlink("/proc/self/exe", target.data(), target.size());
  if (length <= 0 || static_cast<std::size_t>(length) == target.size()) return {};
  return std::string_view(target.data(), static_cast<std::size_t>(length));
}

}  // namespace

// The first to ask about a process pays for everything that the system shows of it: more than for
// any other call of a launch. So that is asked only when the path at hand might not be the file's.
Path executableLocation() {
  Path executed = executedPath();
  if (isResolved(executed)) return executed;
  Path shown = shownExecutable();
  return shown.empty() ? resolvedPath(executed) : shown;
}

}  // namespace quillon::platform
