#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/core/path.h"
#include "platform/process/environment.h"

/// Child processes that this process waits for.
namespace quillon::platform {

/// The command line and environment of a child.
struct ChildCommand {
  Path executable;
  /// The arguments after the path, which is argument zero.
  std::vector<std::string> arguments;
  Environment environment = startEnvironment();
};

/// The time limit of a child, and how much of its standard output is kept.
struct ChildLimits {
  std::chrono::milliseconds time;
  /// If the output has at most this many bytes, all of it is kept, otherwise the first `headBytes`.
  std::size_t outputBytes;
  std::size_t headBytes;
};

/// The outcome of a child process.
struct ChildRun {
  /// The errno value of a failed start, 0 if the child ran. If it is not 0, the other members have
  /// no meaning.
  int startError = 0;
  /// The exit status of the child. If a signal ended it, 128 + the signal's number, as in shells.
  int exitStatus = 0;
  /// What was kept of its standard output, and the number of all bytes.
  std::string output;
  std::uint64_t outputBytes = 0;
};

/// Runs a child to its end. Both of its output streams are read while it runs, so that it never
/// blocks on a full pipe; its standard error is discarded. It inherits standard input and no other
/// descriptor, and gets the signal mask that the process was started with.
///
/// Blocks until the child has ended or `limits.time` is over. A child that is still running then is
/// killed. If another process keeps the child's streams open, the call returns at that time, too.
/// The child does not outlive this process: it is killed by `endProcess`, and by SIGHUP, SIGINT and
/// SIGTERM before they end the process (ignored ones stay ignored). While it runs, SIGCHLD is not
/// ignored, so that the exit status cannot get lost. Any thread; one run at a time.
[[nodiscard]] ChildRun runChild(const ChildCommand& command, const ChildLimits& limits);

}  // namespace quillon::platform
