#pragma once

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include "platform/text/json.h"
#include "tests/launch_fixture.h"

/// Launches of the built launcher, and the conditions that must be true after each, whatever its
/// outcome.
namespace quillon::torture {

using tests::Path;
using Strings = std::vector<std::string>;

/// Blocks until every child has ended, including orphaned children of launchers. Returns the exit
/// status of `child`, -1 for a signal. After half a minute SIGALRM interrupts the wait, and the
/// child is killed.
inline int waitForAll(pid_t child) {
  ::alarm(30);
  int childStatus = 0;
  for (;;) {
    int status = 0;
    const pid_t ended = ::waitpid(-1, &status, 0);
    if (ended == child) childStatus = status;
    if (ended == -1 && errno == EINTR) ::kill(child, SIGKILL);
    if (ended == -1 && errno == ECHILD) break;
  }
  ::alarm(0);
  return WIFEXITED(childStatus) ? WEXITSTATUS(childStatus) : -1;
}

/// Whether a file contains a JSON object and a line feed.
inline bool isWholeReport(const Path& file) {
  const std::string text = tests::contentOf(file);
  return text.ends_with('\n') && platform::parseJsonObject(text);
}

/// A launch of a profile to clean. It also has files that must not be modified, some of them behind
/// symbolic links in the profile. With a proxy the launch has a window.
class Trial {
 public:
  explicit Trial(const std::string& proxy)
      : launch(R"({"close-previous-tabs": true, "webgl-profile": "mac-intel-iris",
                  "granular-storage-reset": {"all": true}, "cdp-tcp-port": "9222")" +
               (proxy.empty()
                    ? "}"
                    : R"(, "auto-geo": 1, "auto-lang": 1, "proxy-server": ")" + proxy + "\"}")) {
    launch.environment.push_back("ENGINE_LOG=" + (launch.home.path() / "engine-log").native());
    // Without this variable the toolkit does not connect to a Wayland display.
    launch.environment.push_back("XDG_RUNTIME_DIR=" + launch.home.path().native());
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "NO_AT_BRIDGE"}) {
      const char* value = std::getenv(name);
      if (value != nullptr) launch.environment.push_back(std::string(name) + "=" + value);
    }
    for (const Path& file : untouchables()) launch.home.write(file, untouched);
    fillProfile();
  }

  /// Restores everything that a launch removes.
  void fillProfile() const {
    for (const char* file :
         {"Current Tabs", "Cookies", "Local Storage/leveldb/000003.log", "Sessions/Session_1"}) {
      launch.profile.write(Path("Default") / file, "to be removed");
    }
    for (const char* link : {"Last Session", "IndexedDB", "Local Storage/link"}) {
      std::error_code exists;
      std::filesystem::create_directory_symlink(launch.home.path() / "outside",
                                                launch.profile.path() / "Default" / link, exists);
    }
  }

  [[nodiscard]] pid_t start() const {
    static const int output = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
    return launch.start(output);
  }
  /// Launches and waits until all its processes have ended. Returns the exit status.
  [[nodiscard]] int run() const { return waitForAll(start()); }
  [[nodiscard]] Path resultFile() const { return reports / launch.resultFile().filename(); }
  /// The number of times the engine was started.
  [[nodiscard]] std::size_t engineStarts() const {
    return tests::contentOf(launch.home.path() / "engine-log").size();
  }

  /// The conditions on the files that are not met. A killed launch may leave a temporary file.
  [[nodiscard]] Strings wrongFiles(bool wasKilled = false) const {
    Strings wrong;
    std::error_code none;
    for (const auto& entry : std::filesystem::directory_iterator(reports, none)) {
      const std::string name = entry.path().filename();
      if (!name.starts_with(".quillon")) continue;
      const bool isReport = name.ends_with("-result.json") || name.ends_with("-error.json");
      if (isReport && !isWholeReport(entry)) wrong.push_back("not whole: " + name);
      if (!isReport && !wasKilled) wrong.push_back("left over: " + name);
    }
    for (const Path& file : untouchables()) {
      if (tests::contentOf(file) != untouched) wrong.push_back("touched: " + file.native());
    }
    return wrong;
  }
  /// The conditions that are not met: those on the files, the exit status and the engine's starts.
  [[nodiscard]] Strings wrongAfter(int status, std::size_t starts = 1) const {
    Strings wrong = wrongFiles();
    const bool isKnown = status == 0 || status == 1 || status == 42;
    if (!isKnown || engineStarts() != (status == 0 ? starts : starts - 1)) {
      wrong.push_back(std::to_string(engineStarts()) + " engine starts with exit status " +
                      std::to_string(status));
    }
    return wrong;
  }

  tests::Launch launch;
  /// The folder for the launch's reports.
  Path reports = launch.profile.path();

 private:
  static constexpr const char* untouched = "nobody may touch this";

  [[nodiscard]] std::vector<Path> untouchables() const {
    return {launch.home.path() / "outside/file", launch.home.path() / "outside/folder/file",
            launch.profile.path() / "Default/History"};
  }
};

/// Counts the trials and prints the errors.
class Tally {
 public:
  explicit Tally(std::string name) : name_(std::move(name)) {}

  void add(const std::string& what, const Strings& wrong) {
    ++tried_;
    if (!wrong.empty()) ++wrong_;
    for (const std::string& each : wrong) {
      std::printf("%s: %s: %s\n", name_.c_str(), what.c_str(), each.c_str());
    }
  }
  /// Prints the total. Returns the exit status of the program.
  [[nodiscard]] int finish() const {
    std::printf("%s: %zu tried, %zu wrong\n", name_.c_str(), tried_, wrong_);
    return wrong_ == 0 ? 0 : 1;
  }

 private:
  std::string name_;
  std::size_t tried_ = 0;
  std::size_t wrong_ = 0;
};

/// Launches in environments that a launcher does not expect.
int runSurroundings(const std::string& proxy, Tally tally);

/// Launches with proxy settings that curl could misinterpret. With `everyPlace` all codes are tried
/// in all parts of the setting and in hostile environments, otherwise only the control characters
/// in the login.
int runProxies(bool everyPlace, Tally tally);

}  // namespace quillon::torture
