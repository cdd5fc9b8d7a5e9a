#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/core/path.h"
#include "platform/process/environment.h"

/// Child processes that this process waits for.
namespace quillon::platform {

/// What a child is started as.
struct ChildCommand {
  Path executable;
  /// They follow the path, which is argument zero.
  std::vector<std::string> arguments;
  Environment environment = startEnvironment();
};

/// How long a child may run and how much of its standard output is kept.
struct ChildLimits {
  std::chrono::milliseconds time;
  /// An output of at most this many bytes is kept whole, of a longer one the first `headBytes`.
  std::size_t outputBytes;
  std::size_t headBytes;
};

/// The outcome of a child process.
struct ChildRun {
  /// Why it could not be started, as an errno value; 0 if it ran. If it is not 0, nothing below has
  /// a meaning.
  int startError = 0;
  /// Its exit status; 128 + the signal's number if a signal ended it, as shells count.
  int exitStatus = 0;
  /// What was kept of its standard output, and the number of all bytes.
  std::string output;
  std::uint64_t outputBytes = 0;
};

/// Runs a child to its end. Both of its output streams are read while it runs, so that it never
/// blocks on a full pipe; its standard error is discarded. It inherits standard input and no other
/// descriptor, and gets the signal mask that the process was started with.
///
/// Blocks until the child has ended, but no longer than `limits.time`: then it is killed. If
/// another process keeps the child's streams open, the call returns at that time, too. The child
/// does not outlive this process: it is killed by `endProcess`, and by SIGHUP, SIGINT and SIGTERM
/// before they end the process (ignored ones stay ignored). While it runs SIGCHLD is not ignored,
/// so that the exit status cannot get lost. Any thread; one run at a time.
[[nodiscard]] ChildRun runChild(const ChildCommand& command, const ChildLimits& limits);

}  // namespace quillon::platform
