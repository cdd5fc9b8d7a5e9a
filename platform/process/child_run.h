#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/files/path.h"
#include "platform/process/environment.h"

/// Children that are waited for.
namespace quillon::platform {

/// What a child is started as.
struct ChildCommand {
  Path executable;
  /// They come behind the path, which is argument zero.
  std::vector<std::string> arguments;
  Environment environment = startEnvironment();
};

/// How long a child may run and how much of its standard output is kept.
struct ChildLimits {
  std::chrono::milliseconds time;
  /// An output of up to so many bytes is kept whole, of a longer one the first `headBytes`.
  std::size_t outputBytes;
  std::size_t headBytes;
};

/// What became of a child process.
struct ChildRun {
  /// Why it could not be started, as an errno value; 0 when it ran. Otherwise nothing below counts.
  int startError = 0;
  /// Its exit status; 128 + the signal's number when a signal ended it, as shells count.
  int exitStatus = 0;
  /// Its standard output as far as it is kept, and how many bytes there were in all.
  std::string output;
  std::uint64_t outputBytes = 0;
};

/// Runs a child to its end and reads both of its output streams meanwhile, so that it never stalls
/// in a full pipe; its standard error is dropped. It inherits standard input and no other
/// descriptor, and gets the signal mask that the process was started with. Blocks until the child
/// has ended, at the latest `limits.time` after the call: then it is killed. Whoever else holds its
/// streams open can delay the return until then too. It ends with this process when that ends by
/// `endProcess`, SIGHUP, SIGINT or SIGTERM. Any thread, but one run at a time; while it runs the
/// process does not ignore SIGCHLD, so that the exit status cannot get lost.
[[nodiscard]] ChildRun runChild(const ChildCommand& command, const ChildLimits& limits);

}  // namespace quillon::platform
