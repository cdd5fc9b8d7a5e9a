#pragma once

#include <spawn.h>

#include <csignal>
#include <string>
#include <vector>

#include "platform/core/descriptor.h"
#include "platform/core/path.h"

/// Functions that start processes, and owners of the objects that posix_spawn needs. Every function
/// that returns an int returns an errno value. Any thread unless stated otherwise.
namespace quillon::platform {

class SpawnFileActions {
 public:
  SpawnFileActions() { ::posix_spawn_file_actions_init(&actions_); }
  SpawnFileActions(const SpawnFileActions&) = delete;
  SpawnFileActions& operator=(const SpawnFileActions&) = delete;
  ~SpawnFileActions() { ::posix_spawn_file_actions_destroy(&actions_); }

  [[nodiscard]] int duplicate(const UniqueFd& from, int to) {
    return ::posix_spawn_file_actions_adddup2(&actions_, from.get(), to);
  }
  [[nodiscard]] posix_spawn_file_actions_t* get() { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_{};
};

class SpawnAttributes {
 public:
  SpawnAttributes() { ::posix_spawnattr_init(&attributes_); }
  SpawnAttributes(const SpawnAttributes&) = delete;
  SpawnAttributes& operator=(const SpawnAttributes&) = delete;
  ~SpawnAttributes() { ::posix_spawnattr_destroy(&attributes_); }

  /// Adds flags to those that are already set.
  [[nodiscard]] int addFlags(short flags) {
    flags_ = static_cast<short>(flags_ | flags);
    return ::posix_spawnattr_setflags(&attributes_, flags_);
  }
  /// Sets the signals that are blocked in the child.
  [[nodiscard]] int setSignalMask(const sigset_t& mask) {
    if (const int error = ::posix_spawnattr_setsigmask(&attributes_, &mask)) return error;
    return addFlags(POSIX_SPAWN_SETSIGMASK);
  }
  [[nodiscard]] const posix_spawnattr_t* get() const { return &attributes_; }

 private:
  posix_spawnattr_t attributes_{};
  short flags_ = 0;
};

/// Makes the child inherit its three standard streams and no other descriptor. Call it after all
/// other actions have been added.
[[nodiscard]] int keepOnlyStandardStreams(SpawnFileActions& actions, SpawnAttributes& attributes);

/// Calls posix_spawn; `actions` may be null. The child does not inherit a pipe that another thread
/// is opening at the same time.
[[nodiscard]] int spawn(pid_t& id, const Path& executable,
                        const posix_spawn_file_actions_t* actions,
                        const SpawnAttributes& attributes, char* const* argumentVector,
                        char* const* environment);

/// An argument or environment vector in the format of the exec family, ending with a null pointer.
/// It points into `strings`.
[[nodiscard]] std::vector<char*> pointersTo(const std::vector<std::string>& strings);

/// Starts a process as the leader of a new session. The launcher does not wait for it: it outlives
/// this process. It inherits every descriptor that does not close on exec, the signal mask and
/// dispositions as the launcher received them (except the two signals that the C library reserves),
/// and the start environment. `argumentVector` starts with argument zero; a string ends at its
/// first NUL. Main thread.
[[nodiscard]] int spawnInNewSession(const Path& executable,
                                    const std::vector<std::string>& argumentVector);

}  // namespace quillon::platform
