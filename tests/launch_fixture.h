#pragma once

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <vector>

/// Launches of the built executable, started as by a profile manager.
namespace quillon::tests {

using Path = std::filesystem::path;

/// A folder for one test, removed with its contents.
class TemporaryFolder {
 public:
  TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder();

  [[nodiscard]] const Path& path() const { return path_; }
  /// Writes a file below the folder. Creates missing parents.
  void write(const Path& file, const std::string& content) const;
  [[nodiscard]] bool has(const Path& file) const;

 private:
  Path path_;
};

/// The file's content. Empty if the file does not exist.
[[nodiscard]] std::string contentOf(const Path& file);

/// The facts that the stand-in engine reported about its start, by letter. Empty if it did not run.
using EngineFacts = std::map<char, std::vector<std::string>>;

/// The outcome of a launch.
struct Outcome {
  /// The exit status. If a signal ended the launcher, 128 + the signal's number.
  int status = -1;
  EngineFacts engine;
  std::string errors;
  std::chrono::milliseconds elapsed{};
};

/// The facts that the engine reported under that letter, sorted. "(no engine)" if it reported none.
[[nodiscard]] std::vector<std::string> sortedFacts(const Outcome& outcome, char letter);

/// A launch to run: a profile folder with an overlay, arguments and an environment.
class Launch {
 public:
  explicit Launch(const std::string& overlay = "{}");

  TemporaryFolder home;
  TemporaryFolder profile;
  Path executable;
  /// Contains the profile folder. May be replaced.
  std::vector<std::string> arguments;
  /// Entries in the format of execve, without the engine's: HOME, PATH and no variable of a
  /// display.
  std::vector<std::string> environment;
  std::string engine;
  /// Runs in the child process just before it executes the launcher.
  std::function<void()> prepare = [] {};

  /// Starts the launcher with that descriptor as its standard output. It inherits no descriptor
  /// except the three streams.
  [[nodiscard]] pid_t start(int output) const;
  /// Starts the launcher and waits until it and its engine have ended.
  [[nodiscard]] Outcome run() const;

  [[nodiscard]] Path resultFile() const { return profile.path() / ".quillon-launcher-result.json"; }
  [[nodiscard]] Path errorFile() const { return profile.path() / ".quillon-launcher-error.json"; }
};

}  // namespace quillon::tests
