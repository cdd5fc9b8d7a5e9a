#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files/files.h"

/// Child processes and what they inherit.
namespace quillon::platform {

/// Environment entries ("NAME=value"; malformed ones stay as they are), a view of the strings that
/// the process was started with.
class Environment {
 public:
  explicit Environment(char** entries);

  /// The value of the first entry of that name.
  [[nodiscard]] std::optional<std::string_view> value(std::string_view name) const;
  /// As the exec family takes it, ending with a null pointer.
  [[nodiscard]] char* const* entries() const { return entries_.data(); }

 private:
  std::vector<char*> entries_;
};

/// The environment as it was at the first call, which main() makes before anything could change it.
/// Children get this one: a UI toolkit removes variables from the live one.
[[nodiscard]] const Environment& startEnvironment();

/// Keeps the disposition of every signal for `spawnInNewSession`, which puts them back before it
/// starts its child. For the main thread, before a UI toolkit that changes some is loaded.
void keepSignalDispositions();

/// What became of a child process.
struct ChildRun {
  /// Why it could not be started, as an errno value; 0 when it ran. Otherwise nothing below counts.
  int startError = 0;
  /// Its exit status; 128 + the signal's number when a signal ended it, as shells count.
  int exitStatus = 0;
  /// The first `outputLimit` bytes of its standard output, and how many there were in all.
  std::string output;
  std::uint64_t outputBytes = 0;
};

/// Runs a child to its end and reads both of its output streams meanwhile, so that it never stalls
/// in a full pipe; its standard error is dropped. It inherits everything else, standard input and
/// the start environment included. `arguments` come behind the path, which is argument zero.
/// Blocks until the child has ended, at the latest `timeLimit` after the call: then it is killed.
/// Whoever else holds its streams open can delay the return until then too. Any thread; while it
/// runs the process does not ignore SIGCHLD, so that the exit status cannot get lost.
[[nodiscard]] ChildRun runChild(const Path& executable, const std::vector<std::string>& arguments,
                                std::chrono::milliseconds timeLimit, std::size_t outputLimit);

/// Starts a child as the leader of a new session and forgets it: nobody waits for it. It inherits
/// every descriptor that does not close on exec, the signal mask and dispositions as the launcher
/// received them (but for the two signals that the C
/// library reserves), and the start environment. `argumentVector` starts with argument zero; a
/// string ends at its first NUL. Main thread. Returns 0, or the errno value of the failed start.
[[nodiscard]] int spawnInNewSession(const Path& executable,
                                    const std::vector<std::string>& argumentVector);

}  // namespace quillon::platform
