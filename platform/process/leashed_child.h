#pragma once

#include <sys/types.h>

#include <array>
#include <chrono>
#include <csignal>
#include <functional>
#include <optional>

#include "platform/process/child_leash.h"
#include "platform/process/signal_override.h"

namespace quillon::platform {

/// Owns a child that runs on the leash: it never outlives the process, and whoever leaves without
/// having seen its end kills and reaps it. One at a time. While it runs, SIGCHLD is not ignored, so
/// that its end cannot get lost, and the ending signals kill it before they end the process; those
/// that are ignored stay ignored.
class LeashedChild {
 public:
  using Clock = std::chrono::steady_clock;
  /// Starts the child and tells its number; returns an errno value.
  using Spawn = std::function<int(pid_t& id)>;

  LeashedChild() = default;
  LeashedChild(const LeashedChild&) = delete;
  LeashedChild& operator=(const LeashedChild&) = delete;
  ~LeashedChild();

  /// Returns the errno value of `spawn`. Once per object.
  [[nodiscard]] int start(const Spawn& spawn);
  /// Blocks until the child has ended and returns its wait status; one still running at the
  /// deadline is killed.
  [[nodiscard]] int waitUntil(Clock::time_point deadline);

 private:
  [[nodiscard]] bool hasEnded(int options) const;
  void endNow();
  void reap();
  void overrideSignals();
  void giveSignalsBack();

  pid_t id_ = 0;
  /// Stands when the child could not be waited for: that never counts as success.
  int status_ = SIGKILL;
  std::optional<SignalOverride> reapable_;
  std::array<std::optional<SignalOverride>, endingSignals.size()> endings_;
};

}  // namespace quillon::platform
