#include "platform/system/process.h"

#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <thread>

#include "platform/files/descriptor.h"
#include "platform/system/signal_override.h"

namespace quillon::platform {
namespace {

using Clock = std::chrono::steady_clock;

std::vector<char*> pointersTo(const std::vector<std::string>& strings) {
  std::vector<char*> pointers;
  pointers.reserve(strings.size() + 1);
  // The exec family takes char* for historical reasons and does not write to the strings (POSIX).
  for (const std::string& string : strings) pointers.push_back(const_cast<char*>(string.c_str()));
  pointers.push_back(nullptr);
  return pointers;
}

class SpawnFileActions {
 public:
  SpawnFileActions() { ::posix_spawn_file_actions_init(&actions_); }
  SpawnFileActions(const SpawnFileActions&) = delete;
  SpawnFileActions& operator=(const SpawnFileActions&) = delete;
  ~SpawnFileActions() { ::posix_spawn_file_actions_destroy(&actions_); }

  /// Returns an errno value.
  int duplicate(const UniqueFd& from, int to) {
    return ::posix_spawn_file_actions_adddup2(&actions_, from.get(), to);
  }
  [[nodiscard]] const posix_spawn_file_actions_t* get() const { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_{};
};

class SpawnAttributes {
 public:
  SpawnAttributes() { ::posix_spawnattr_init(&attributes_); }
  SpawnAttributes(const SpawnAttributes&) = delete;
  SpawnAttributes& operator=(const SpawnAttributes&) = delete;
  ~SpawnAttributes() { ::posix_spawnattr_destroy(&attributes_); }

  int setFlags(short flags) { return ::posix_spawnattr_setflags(&attributes_, flags); }
  [[nodiscard]] const posix_spawnattr_t* get() const { return &attributes_; }

 private:
  posix_spawnattr_t attributes_{};
};

/// Owns a running child: whoever leaves without having seen its end kills and reaps it.
class ChildProcess {
 public:
  explicit ChildProcess(pid_t id) : id_(id) {}
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;
  ~ChildProcess() {
    if (!ended_) (void)endNow();
  }

  /// The wait status; a child still running at the deadline is killed.
  int waitUntil(Clock::time_point deadline) {
    constexpr std::chrono::milliseconds longestPause{10};
    // A child closes its streams a moment before it can be reaped.
    for (Clock::duration pause = std::chrono::microseconds(100); !reap(WNOHANG);) {
      if (Clock::now() >= deadline) return endNow();
      std::this_thread::sleep_for(pause);
      pause = std::min<Clock::duration>(2 * pause, longestPause);
    }
    return status_;
  }

 private:
  int endNow() {
    ::kill(id_, SIGKILL);
    (void)reap(0);
    return status_;
  }

  bool reap(int options) {
    pid_t reaped = 0;
    do {
      reaped = ::waitpid(id_, &status_, options);
    } while (reaped == -1 && errno == EINTR);
    ended_ = reaped != 0;
    return ended_;
  }

  pid_t id_;
  /// Stands when the child could not be waited for: that never counts as success.
  int status_ = SIGKILL;
  bool ended_ = false;
};

int exitStatusOf(int waitStatus) {
  constexpr int signalBase = 128;
  return WIFEXITED(waitStatus) ? WEXITSTATUS(waitStatus) : signalBase + WTERMSIG(waitStatus);
}

/// One stream of a child being read: what is kept of it and what went by.
struct DrainedStream {
  int descriptor;
  std::size_t limit;
  std::string kept;
  std::uint64_t bytes = 0;

  /// Reads once; false at the end of the stream.
  bool readSome() {
    constexpr std::size_t chunkBytes = 65536;
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init): filling it would be wasted.
    std::array<char, chunkBytes> chunk;
    const ssize_t got = ::read(descriptor, chunk.data(), chunk.size());
    if (got < 0) return errno == EINTR;
    const auto length = static_cast<std::size_t>(got);
    kept.append(chunk.data(), std::min(length, limit - kept.size()));
    bytes += length;
    return got > 0;
  }
};

int millisecondsUntil(Clock::time_point deadline) {
  const auto rest = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
  return static_cast<int>(std::max<std::chrono::milliseconds::rep>(rest.count(), 0));
}

/// Reads until both streams end or the deadline has passed.
void drain(std::array<DrainedStream, 2>& streams, Clock::time_point deadline) {
  std::array<pollfd, 2> polled{
      {{streams[0].descriptor, POLLIN, 0}, {streams[1].descriptor, POLLIN, 0}}};
  const auto isOpen = [](const pollfd& entry) { return entry.fd >= 0; };
  while (std::any_of(polled.begin(), polled.end(), isOpen)) {
    const int wait = millisecondsUntil(deadline);
    const int ready = ::poll(polled.data(), polled.size(), wait);
    if (wait == 0 || (ready < 0 && errno != EINTR)) return;
    for (std::size_t i = 0; ready > 0 && i < polled.size(); ++i) {
      if (polled[i].revents != 0 && !streams[i].readSome()) polled[i].fd = -1;
    }
  }
}

/// Starts the child with the pipes' write ends as its output streams and closes them here.
int startWithPipes(pid_t& id, const Path& executable, const std::vector<std::string>& arguments,
                   Pipe& output, Pipe& errors) {
  std::vector<std::string> argumentVector{executable.native()};
  argumentVector.insert(argumentVector.end(), arguments.begin(), arguments.end());
  SpawnFileActions actions;
  if (const int error = actions.duplicate(output.writeEnd, STDOUT_FILENO)) return error;
  if (const int error = actions.duplicate(errors.writeEnd, STDERR_FILENO)) return error;
  const int error = ::posix_spawn(&id, executable.c_str(), actions.get(), nullptr,
                                  pointersTo(argumentVector).data(), startEnvironment().entries());
  output.writeEnd.reset();
  errors.writeEnd.reset();
  return error;
}

/// SIGKILL and SIGSTOP are among them: asking is harmless, and putting back fails unnoticed.
std::array<struct sigaction, NSIG> keptDispositions;
bool dispositionsAreKept = false;

void restoreSignalDispositions() {
  if (!dispositionsAreKept) return;
  for (int number = 1; number < NSIG; ++number) {
    ::sigaction(number, &keptDispositions[static_cast<std::size_t>(number)], nullptr);
  }
}

}  // namespace

Environment::Environment(char** entries) {
  while (entries != nullptr && *entries != nullptr) entries_.push_back(*entries++);
  entries_.push_back(nullptr);
}

std::optional<std::string_view> Environment::value(std::string_view name) const {
  for (const char* entry : entries_) {
    const std::string_view text = entry == nullptr ? "" : entry;
    if (text.size() > name.size() && text.substr(0, name.size()) == name &&
        text[name.size()] == '=') {
      return text.substr(name.size() + 1);
    }
  }
  return std::nullopt;
}

const Environment& startEnvironment() {
  // Never destroyed: a background thread may use it while the process ends.
  static const Environment& environment = *new Environment(::environ);
  return environment;
}

void keepSignalDispositions() {
  for (int number = 1; number < NSIG; ++number) {
    ::sigaction(number, nullptr, &keptDispositions[static_cast<std::size_t>(number)]);
  }
  dispositionsAreKept = true;
}

ChildRun runChild(const Path& executable, const std::vector<std::string>& arguments,
                  std::chrono::milliseconds timeLimit, std::size_t outputLimit) {
  const auto deadline = Clock::now() + timeLimit;
  auto output = Pipe::open();
  auto errors = Pipe::open();
  if (!output || !errors) return {.startError = errno};
  // While SIGCHLD is ignored, which a launcher may well inherit, an ended child leaves no status.
  const SignalOverride reapableChildren(SIGCHLD, SIG_DFL);
  pid_t id = 0;
  if (const int error = startWithPipes(id, executable, arguments, *output, *errors)) {
    return {.startError = error};
  }
  ChildProcess child(id);
  std::array<DrainedStream, 2> streams{
      {{output->readEnd.get(), outputLimit, {}}, {errors->readEnd.get(), 0, {}}}};
  drain(streams, deadline);
  const int status = child.waitUntil(deadline);
  return {0, exitStatusOf(status), std::move(streams[0].kept), streams[0].bytes};
}

int spawnInNewSession(const Path& executable, const std::vector<std::string>& argumentVector) {
  restoreSignalDispositions();
  SpawnAttributes attributes;
  if (const int error = attributes.setFlags(POSIX_SPAWN_SETSID)) return error;
  pid_t ignored = 0;
  return ::posix_spawn(&ignored, executable.c_str(), nullptr, attributes.get(),
                       pointersTo(argumentVector).data(), startEnvironment().entries());
}

}  // namespace quillon::platform
