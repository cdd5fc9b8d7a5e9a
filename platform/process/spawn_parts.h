#pragma once

#include <spawn.h>

#include <csignal>
#include <string>
#include <vector>

#include "platform/files/descriptor.h"
#include "platform/files/path.h"

/// What posix_spawn is given, with owners. Every function that returns an int returns an errno
/// value. Any thread.
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

  /// Sets flags beside those that are set already.
  [[nodiscard]] int addFlags(short flags) {
    flags_ = static_cast<short>(flags_ | flags);
    return ::posix_spawnattr_setflags(&attributes_, flags_);
  }
  /// The signals that the child starts with as blocked.
  [[nodiscard]] int setSignalMask(const sigset_t& mask) {
    if (const int error = ::posix_spawnattr_setsigmask(&attributes_, &mask)) return error;
    return addFlags(POSIX_SPAWN_SETSIGMASK);
  }
  [[nodiscard]] const posix_spawnattr_t* get() const { return &attributes_; }

 private:
  posix_spawnattr_t attributes_{};
  short flags_ = 0;
};

/// Sees to it that the child gets its three standard streams and no other descriptor. Call when all
/// other actions are in.
[[nodiscard]] int keepOnlyStandardStreams(SpawnFileActions& actions, SpawnAttributes& attributes);

/// posix_spawn itself; `actions` may be null. No pipe that another thread is making gets into the
/// child.
[[nodiscard]] int spawn(pid_t& id, const Path& executable,
                        const posix_spawn_file_actions_t* actions,
                        const SpawnAttributes& attributes, char* const* argumentVector,
                        char* const* environment);

/// An argument or environment vector as the exec family takes it, ending with a null pointer. It
/// points into `strings`.
[[nodiscard]] std::vector<char*> pointersTo(const std::vector<std::string>& strings);

}  // namespace quillon::platform
