#include "platform/process/child_process.h"

#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <utility>

#include "platform/core/descriptor.h"
#include "platform/process/process.h"
#include "platform/process/signals.h"
#include "platform/process/spawn.h"

namespace quillon::platform {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

int pollMilliseconds(Clock::duration duration) {
  const auto rounded = std::chrono::ceil<milliseconds>(duration).count();
  return static_cast<int>(std::max<milliseconds::rep>(rounded, 0));
}

/// The pipe of one output stream, and what is kept of the stream.
class DrainedStream {
 public:
  /// If the output has at most `wholeLimit` bytes, all of it is kept, otherwise the first
  /// `headLimit`.
  DrainedStream(std::size_t wholeLimit, std::size_t headLimit)
      : wholeLimit_(wholeLimit), headLimit_(headLimit) {}

  [[nodiscard]] bool open() {
    pipe_ = Pipe::open();
    return pipe_.has_value();
  }
  [[nodiscard]] const UniqueFd& writeEnd() const { return pipe_->writeEnd; }
  void closeWriteEnd() { pipe_->writeEnd.reset(); }
  /// For poll. A closed pipe is -1, which poll ignores.
  [[nodiscard]] int descriptor() const {
    return pipe_->readEnd.isOpen() ? pipe_->readEnd.get() : -1;
  }
  [[nodiscard]] bool hasEnded() const { return !pipe_->readEnd.isOpen(); }

  /// Reads once, and closes the pipe at the end of the stream.
  void readSome() {
    // A background thread may have a stack of no more than 64 KiB.
    constexpr std::size_t chunkBytes = 4096;
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init): filling the array is unnecessary.
    std::array<char, chunkBytes> chunk;
    const ssize_t got = ::read(descriptor(), chunk.data(), chunk.size());
    if (got > 0) {
      keep(chunk.data(), static_cast<std::size_t>(got));
    } else if (got == 0 || errno != EINTR) {
      pipe_->readEnd.reset();
    }
  }

  std::string kept;
  std::uint64_t bytes = 0;

 private:
  void keep(const char* chunk, std::size_t length) {
    bytes += length;
    const std::size_t limit = bytes > wholeLimit_ ? headLimit_ : wholeLimit_;
    if (kept.size() < limit) {
      kept.append(chunk, std::min(length, limit - kept.size()));
    } else if (kept.size() > limit) {
      kept.resize(limit);
      kept.shrink_to_fit();
    }
  }

  std::size_t wholeLimit_;
  std::size_t headLimit_;
  std::optional<Pipe> pipe_;
};

/// Owns a child process. It is killed and reaped when this object is destroyed or this process
/// exits, whichever comes first.
class ChildProcess {
 public:
  ChildProcess() = default;
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;
  ~ChildProcess() {
    if (id_ != 0) (void)kill();
  }

  /// Returns an errno value.
  [[nodiscard]] int start(const ChildCommand& command, const DrainedStream& output,
                          const DrainedStream& errors) {
    std::vector<std::string> argumentVector{command.executable.text()};
    argumentVector.insert(argumentVector.end(), command.arguments.begin(), command.arguments.end());
    const std::vector<char*> pointers = pointersTo(argumentVector);
    SpawnFileActions actions;
    SpawnAttributes attributes;
    if (const int error = actions.duplicate(output.writeEnd(), STDOUT_FILENO)) return error;
    if (const int error = actions.duplicate(errors.writeEnd(), STDERR_FILENO)) return error;
    if (const int error = keepOnlyStandardStreams(actions, attributes)) return error;
    if (const int error = attributes.setSignalMask(startSignalMask())) return error;
    const std::shared_lock delay = delayProcessEnd();
    const int error = spawn(id_, command.executable, actions.get(), attributes, pointers.data(),
                            command.environment.entries());
    if (error != 0) id_ = 0;
    setChildToKill(id_);
    return error;
  }

  /// Does not reap the child if it has ended, so that no other process gets its ID.
  [[nodiscard]] bool hasEnded(int options = WNOHANG) const {
    siginfo_t ended{};
    const auto wait = [&] {
      return ::waitid(P_PID, static_cast<id_t>(id_), &ended, WEXITED | WNOWAIT | options);
    };
    return retryInterrupted(wait) == -1 || ended.si_pid != 0;
  }

  /// Returns the wait status of a child that has ended.
  int reap() {
    // Initial value, so that a failed wait is never mistaken for success.
    int status = SIGKILL;
    const std::shared_lock delay = delayProcessEnd();
    (void)retryInterrupted([&] { return ::waitpid(id_, &status, 0); });
    setChildToKill(0);
    id_ = 0;
    return status;
  }

  int kill() {
    ::kill(id_, SIGKILL);
    (void)hasEnded(0);
    return reap();
  }

 private:
  pid_t id_ = 0;
};

/// Reads both streams until they end. Returns false if the deadline or a signal came first.
bool drain(std::array<DrainedStream, 2>& streams, int signals, Clock::time_point deadline) {
  while (!streams[0].hasEnded() || !streams[1].hasEnded()) {
    std::array<pollfd, 3> polled{{{streams[0].descriptor(), POLLIN, 0},
                                  {streams[1].descriptor(), POLLIN, 0},
                                  {signals, POLLIN, 0}}};
    const int wait = pollMilliseconds(deadline - Clock::now());
    const int ready = ::poll(polled.data(), polled.size(), wait);
    if (wait == 0 || (ready < 0 && errno != EINTR) || polled[2].revents != 0) return false;
    for (std::size_t i = 0; ready > 0 && i < streams.size(); ++i) {
      if (polled[i].revents != 0) streams[i].readSome();
    }
  }
  return true;
}

/// Returns the wait status of the child. If the child is still running at the deadline or when a
/// signal arrives, it is killed.
int waitFor(ChildProcess& child, int signals, Clock::time_point deadline) {
  constexpr milliseconds longestPause{10};
  // A child closes its streams a moment before it ends.
  for (milliseconds pause{1}; !child.hasEnded(); pause = std::min(2 * pause, longestPause)) {
    pollfd polled{signals, POLLIN, 0};
    if (Clock::now() >= deadline || ::poll(&polled, 1, pollMilliseconds(pause)) > 0) {
      return child.kill();
    }
  }
  return child.reap();
}

int exitStatusOf(int waitStatus) {
  constexpr int signalBase = 128;
  return WIFEXITED(waitStatus) ? WEXITSTATUS(waitStatus) : signalBase + WTERMSIG(waitStatus);
}

/// The child has ended when this returns.
ChildRun runWatched(const ChildCommand& command, const ChildLimits& limits, int signals) {
  const auto deadline = Clock::now() + limits.time;
  std::array streams{DrainedStream(limits.outputBytes, limits.headBytes), DrainedStream(0, 0)};
  if (!streams[0].open() || !streams[1].open()) return {.startError = errno};
  // While SIGCHLD is ignored, which the launcher may inherit, the exit status of a child is lost.
  const SignalOverride reapable(SIGCHLD, SIG_DFL);
  ChildProcess child;
  if (const int error = child.start(command, streams[0], streams[1])) {
    return {.startError = error};
  }
  for (DrainedStream& stream : streams) stream.closeWriteEnd();
  (void)drain(streams, signals, deadline);
  const int status = waitFor(child, signals, deadline);
  return {0, exitStatusOf(status), std::move(streams[0].kept), streams[0].bytes};
}

}  // namespace

ChildRun runChild(const ChildCommand& command, const ChildLimits& limits) {
  auto signals = Pipe::open();
  if (!signals) return {.startError = errno};
  const TerminationWatch watch(std::move(*signals));
  return runWatched(command, limits, watch.descriptor());
}

}  // namespace quillon::platform
