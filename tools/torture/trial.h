#pragma once

#include <sys/types.h>

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

/// Launches of the built launcher, and what must hold after each of them however it went.
namespace quillon::torture {

using Path = std::filesystem::path;
using Strings = std::vector<std::string>;

/// Makes orphans of launchers this process's children: once it has none, engines have ended too.
void adoptOrphans();

/// Blocks until every child has ended and returns the wait status of `child`. Kills it after
/// `patienceSeconds`; the status then tells so.
int waitForAll(pid_t child);
inline constexpr unsigned patienceSeconds = 30;

/// What will be executed, and the folder that its reports belong in.
struct Execution {
  Strings arguments;
  Strings environment;
  Path profile;
};

/// Starts the launcher with its messages dropped; `enter` runs in the new process just before.
[[nodiscard]] pid_t start(const Execution& execution, const std::function<void()>& enter);

/// The exit status in a wait status; -1 for a signal.
[[nodiscard]] int exitStatus(int waitStatus);

/// A folder with a profile to be cleaned, a home, and files outside that nobody may touch: some
/// beside the profile, some behind links in it.
class Trial {
 public:
  /// `overlay` becomes the overlay of the profile.
  explicit Trial(const std::string& overlay);
  Trial(const Trial&) = delete;
  Trial& operator=(const Trial&) = delete;
  ~Trial();

  /// Puts everything back that a launch removes.
  void fillProfile() const;
  /// A plain launch of the profile, with more environment entries than it needs.
  [[nodiscard]] Execution execution(const Strings& environment = {}) const;
  [[nodiscard]] pid_t start(const Strings& environment = {}) const {
    return torture::start(execution(environment), [] {});
  }
  /// How often the engine was started so far.
  [[nodiscard]] std::size_t engineStarts() const;
  /// What is wrong with the reports; nothing when each is whole or absent.
  [[nodiscard]] std::optional<std::string> reportComplaint() const;
  /// A file that a report was on its way in.
  [[nodiscard]] std::optional<std::string> leftoverComplaint() const;
  [[nodiscard]] std::optional<std::string> outsideComplaint() const;
  [[nodiscard]] bool hasResult() const;
  void removeResult() const;

  [[nodiscard]] const Path& folder() const { return folder_; }

 private:
  Path folder_;
};

/// An overlay that has all of the profile cleaned, and what a window needs when `proxy` is given.
[[nodiscard]] std::string overlayFor(const std::optional<std::string>& proxy);

/// What a wait status and a number of engine starts say together, when that must not be.
[[nodiscard]] std::optional<std::string> outcomeComplaint(int waitStatus, std::size_t engineStarts);

/// Counts what was tried and prints what was wrong.
class Tally {
 public:
  explicit Tally(std::string name) : name_(std::move(name)) {}

  void add(const std::string& what, const std::vector<std::optional<std::string>>& complaints);
  /// Prints the sum; the exit status of the whole.
  [[nodiscard]] int finish() const;

 private:
  std::string name_;
  std::size_t tried_ = 0;
  std::size_t wrong_ = 0;
};

}  // namespace quillon::torture
