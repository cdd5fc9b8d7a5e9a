#pragma once

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <vector>

/// Whole launches of the built executable, as a profile manager starts it.
namespace quillon::tests {

using Path = std::filesystem::path;

/// A folder of its own for one test, removed with everything in it.
class TemporaryFolder {
 public:
  TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder();

  [[nodiscard]] const Path& path() const { return path_; }
  /// Writes a file below the folder, parents included.
  void write(const Path& file, const std::string& content) const;
  [[nodiscard]] bool has(const Path& file) const;

 private:
  Path path_;
};

/// The file's content; empty when there is none.
[[nodiscard]] std::string contentOf(const Path& file);

/// What the stand-in engine told of its start, by the letters it uses; empty when it did not run.
using EngineFacts = std::map<char, std::vector<std::string>>;

/// What came of a launch.
struct Outcome {
  /// The exit status; 128 + the signal's number for a signal.
  int status = -1;
  EngineFacts engine;
  std::string errors;
  std::chrono::milliseconds elapsed{};
};

/// What the engine told under that letter, sorted; "(no engine)" when it told nothing.
[[nodiscard]] std::vector<std::string> sortedFacts(const Outcome& outcome, char letter);

/// One launch to be made: a profile folder with an overlay, arguments and surroundings.
class Launch {
 public:
  explicit Launch(const std::string& overlay = "{}");

  TemporaryFolder home;
  TemporaryFolder profile;
  Path executable;
  /// Names the profile folder; may be replaced.
  std::vector<std::string> arguments;
  /// Entries as for execve, without the engine's: HOME, PATH and nothing of a display.
  std::vector<std::string> environment;
  std::string engine;
  /// Runs in the launcher's process just before it becomes the launcher.
  std::function<void()> prepare = [] {};

  /// Starts the launcher with that descriptor as its standard output and no other beyond the three
  /// streams.
  [[nodiscard]] pid_t start(int output) const;
  /// Starts the launcher and waits until it and its engine have ended.
  [[nodiscard]] Outcome run() const;

  [[nodiscard]] Path resultFile() const { return profile.path() / ".quillon-launcher-result.json"; }
  [[nodiscard]] Path errorFile() const { return profile.path() / ".quillon-launcher-error.json"; }
};

}  // namespace quillon::tests
