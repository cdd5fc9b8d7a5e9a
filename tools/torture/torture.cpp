// Tries to break the launcher, prints what went wrong and how much was tried.
//
// usage: torture surroundings|faults|deaths|load passthrough|windowed [COUNT]
//        torture signals|losses windowed COUNT
//        torture proxies passthrough [1]
//
// COUNT says how many errors each call fails with, launches are killed or get signals, compositors
// are killed, or launches run eight at a time. With 1 the proxies are all there are, without it a
// share. Windowed launches need the environment of scripts/with-peers.

#include <sys/prctl.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstring>
#include <map>
#include <random>
#include <set>
#include <thread>

#include "trial.h"

namespace quillon::torture {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::array<const char*, 25> functions{
    "syscall", "open",     "openat",      "read",          "write",   "close",    "stat",
    "fstat",   "lstat",    "fchmodat",    "fchmod",        "access",  "readlink", "rename",
    "unlink",  "unlinkat", "mkdirat",     "fdopendir",     "readdir", "pipe2",    "poll",
    "waitpid", "waitid",   "posix_spawn", "pthread_create"};
constexpr std::array<int, 6> errors{EIO, ENOMEM, EINTR, EMFILE, EACCES, ENOSPC};

/// Makes each call of a launch fail once, with each error.
int runFaults(const std::string& proxy, int count, Tally tally) {
  std::map<int, int> endings;
  for (const char* function : functions) {
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
      for (int number = 1;; ++number) {
        Trial trial(proxy);
        const Path mark = trial.launch.home.path() / "mark";
        trial.launch.environment.insert(
            trial.launch.environment.end(),
            {std::string("LD_PRELOAD=") + FAULT_SHIM, std::string("FAULT=") + function,
             "FAULT_NUMBER=" + std::to_string(number),
             "FAULT_ERROR=" + std::to_string(errors.at(i)), "FAULT_MARK=" + mark.native()});
        const int status = trial.run();
        if (!std::filesystem::exists(mark)) break;
        ++endings[status];
        tally.add(std::string(function) + " " + std::to_string(number) + " " +
                      std::strerror(errors.at(i)),
                  trial.wrongAfter(status));
      }
    }
  }
  for (const auto& [status, launches] : endings) {
    std::printf("exit status %d: %d launches\n", status, launches);
  }
  return tally.finish();
}

/// Kills launches at random moments; the next launch of the profile must succeed.
int runDeaths(const std::string& proxy, int count, Tally tally) {
  const Trial trial(proxy);
  const auto start = Clock::now();
  (void)trial.run();
  std::mt19937 random(20260301);
  std::uniform_int_distribution<Clock::rep> moment(0, (Clock::now() - start).count());
  for (int i = 0; i < count; ++i) {
    trial.fillProfile();
    const pid_t killed = trial.start();
    std::this_thread::sleep_for(Clock::duration(moment(random)));
    ::kill(killed, SIGKILL);
    (void)waitForAll(killed);
    Strings wrong = trial.wrongFiles(true);
    const std::size_t starts = trial.engineStarts();
    std::filesystem::remove(trial.resultFile());
    const int status = trial.run();
    for (std::string& each : trial.wrongFiles(true)) wrong.push_back(std::move(each));
    if (status != 0 || trial.engineStarts() != starts + 1 || !isWholeReport(trial.resultFile())) {
      wrong.emplace_back("the next launch fails");
    }
    tally.add("death " + std::to_string(i), wrong);
  }
  return tally.finish();
}

/// A Wayland compositor that shows nothing. Its log and its socket are in the folder.
class Compositor {
 public:
  explicit Compositor(const Path& folder) : socket_(folder / "compositor"), process_(::fork()) {
    if (process_ == 0) run(folder);
    for (int i = 0; i < 1000 && !isListening(); ++i) {
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
  }

  [[nodiscard]] bool isListening() const { return std::filesystem::exists(socket_); }
  [[nodiscard]] std::string display() const { return "WAYLAND_DISPLAY=" + socket_.native(); }
  void kill() const { ::kill(process_, SIGKILL); }

 private:
  [[noreturn]] static void run(const Path& folder) {
    ::setenv("XDG_RUNTIME_DIR", folder.c_str(), 1);
    ::dup2(::open((folder / "log").c_str(), O_CREAT | O_WRONLY, 0600), STDERR_FILENO);
    ::dup2(STDERR_FILENO, STDOUT_FILENO);
    ::execlp("weston", "weston", "--no-config", "--backend=headless-backend.so",
             "--shell=kiosk-shell.so", "--socket=compositor", nullptr);
    ::_exit(127);
  }

  Path socket_;
  pid_t process_;
};

/// Launches on a compositor that is killed after a time. Returns the errors found afterwards: the
/// launch must continue without a window or end as if the user had closed its window.
Strings wrongAfterLoss(Trial& trial, Clock::duration time) {
  const Compositor compositor(trial.launch.home.path());
  if (!compositor.isListening()) return {"weston does not start"};
  trial.launch.environment.insert(trial.launch.environment.begin(), compositor.display());
  const pid_t launcher = trial.start();
  std::this_thread::sleep_for(time);
  compositor.kill();
  const int status = waitForAll(launcher);
  Strings wrong = trial.wrongFiles();
  const std::size_t starts = trial.engineStarts();
  if (status != 0 || starts > 1 || (starts == 1 && !isWholeReport(trial.resultFile()))) {
    wrong.push_back(std::to_string(starts) + " engine starts with exit status " +
                    std::to_string(status));
  }
  return wrong;
}

/// The duration of a launch in which nothing is killed.
Clock::duration launchTime(const std::string& proxy) {
  Trial trial(proxy);
  const Compositor compositor(trial.launch.home.path());
  trial.launch.environment.insert(trial.launch.environment.begin(), compositor.display());
  const auto start = Clock::now();
  ::waitpid(trial.start(), nullptr, 0);
  const Clock::duration time = Clock::now() - start;
  compositor.kill();
  (void)waitForAll(0);
  return time;
}

/// Kills the compositor at evenly distributed moments of the first half of a launch, when the
/// toolkit connects and the window appears.
int runLosses(const std::string& proxy, int count, Tally tally) {
  const Clock::duration half = launchTime(proxy) / 2;
  std::size_t unseen = 0;
  for (int i = 0; i < count; ++i) {
    Trial trial(proxy);
    tally.add("loss " + std::to_string(i), wrongAfterLoss(trial, half * i / count));
    unseen += trial.engineStarts();
  }
  std::printf("%zu launches went on\n", unseen);
  if (unseen == static_cast<std::size_t>(count)) tally.add("all", {"no window was closed"});
  return tally.finish();
}

/// Waits until this many launches are left and returns the number of those that failed. Ended
/// engines are ignored.
std::size_t reapUntil(std::size_t remaining, std::set<pid_t>& running) {
  std::size_t failed = 0;
  while (running.size() > remaining) {
    int status = 0;
    if (running.erase(::waitpid(-1, &status, 0)) == 1 && status != 0) ++failed;
  }
  return failed;
}

/// Launches one profile, eight at a time, while a thread reads the result continuously.
int runLoad(const std::string& proxy, int count, Tally tally) {
  const Trial trial(proxy);
  std::size_t reads = 0;
  std::size_t missed = 0;
  std::jthread reader([&](const std::stop_token& stop) {
    while (!stop.stop_requested()) {
      const bool isWhole = isWholeReport(trial.resultFile());
      if (isWhole || reads > 0) ++reads;
      if (!isWhole && reads > 0) ++missed;
    }
  });
  std::set<pid_t> running;
  std::size_t failed = 0;
  for (int i = 0; i < count; ++i) {
    running.insert(trial.start());
    failed += reapUntil(7, running);
  }
  failed += reapUntil(0, running);
  (void)waitForAll(0);
  reader.request_stop();
  reader.join();
  Strings wrong = trial.wrongAfter(0, static_cast<std::size_t>(count));
  if (failed > 0) wrong.push_back(std::to_string(failed) + " launches failed");
  if (missed > 0 || reads == 0) wrong.push_back(std::to_string(missed) + " times no whole report");
  std::printf("%d launches, %zu reads\n", count, reads);
  tally.add("eight at a time", wrong);
  return tally.finish();
}

/// Sends nine termination signals at random moments during a curl that would otherwise wait ten
/// seconds. One of them must end the launcher, and curl with it.
int runSignals(const std::string& proxy, int count, Tally tally) {
  constexpr std::array signals{SIGTERM, SIGINT, SIGHUP};
  constexpr std::chrono::seconds longest{3};
  Trial trial(proxy);
  trial.launch.environment.push_back(std::string("LD_PRELOAD=") + FAULT_SHIM);  // no pauses
  std::mt19937 random(20261123);
  std::uniform_int_distribution<int> firstMoment(0, 30000);
  std::uniform_int_distribution<int> delay(0, 5000);
  for (int i = 0; i < count; ++i) {
    std::array<int, 9> moments{};
    const int first = firstMoment(random);
    for (int& each : moments) each = first + delay(random);
    std::sort(moments.begin(), moments.end());
    const auto start = Clock::now();
    const pid_t launcher = trial.start();
    for (const int microseconds : moments) {
      std::this_thread::sleep_until(start + std::chrono::microseconds(microseconds));
      ::kill(launcher, signals.at(random() % signals.size()));
    }
    const int status = waitForAll(launcher);
    Strings wrong = trial.wrongFiles(true);
    if (Clock::now() - start > longest) wrong.emplace_back("the launcher or curl lives on");
    if (status != -1) wrong.push_back("exit status " + std::to_string(status));
    tally.add("signals " + std::to_string(i), wrong);
  }
  return tally.finish();
}

int run(const std::string& kind, const std::string& mode, int count) {
  const char* variable = kind == "signals" ? "QUILLON_SILENT_PROXY" : "QUILLON_PROXY";
  const char* proxy = mode == "windowed" ? std::getenv(variable) : "";
  if (proxy == nullptr) return 2;
  const bool isWindowed = mode == "windowed";
  const bool onScreen = isWindowed && std::getenv("DISPLAY") != nullptr;
  const bool onWayland = isWindowed && std::getenv("WAYLAND_DISPLAY") != nullptr;
  Tally tally(kind + ", " + mode + (onScreen ? " on a screen" : onWayland ? " on Wayland" : ""));
  // Orphaned children of launchers become children of this process.
  ::prctl(PR_SET_CHILD_SUBREAPER, 1);
  struct sigaction interrupt = {};
  interrupt.sa_handler = [](int) {};
  ::sigaction(SIGALRM, &interrupt, nullptr);
  if (kind == "surroundings") return runSurroundings(proxy, tally);
  if (kind == "proxies") return runProxies(count > 0, tally);
  if (kind == "faults") return runFaults(proxy, count, tally);
  if (kind == "deaths") return runDeaths(proxy, count, tally);
  if (kind == "signals") return runSignals(proxy, count, tally);
  if (kind == "losses") return runLosses(proxy, count, tally);
  if (kind == "load") return runLoad(proxy, count, tally);
  return 2;
}

}  // namespace
}  // namespace quillon::torture

int main(int count, char* arguments[]) {
  if (count < 3) return 2;
  std::setvbuf(stdout, nullptr, _IOLBF, 0);
  return quillon::torture::run(arguments[1], arguments[2], count > 3 ? std::atoi(arguments[3]) : 0);
}
