#pragma once

#include <string>
#include <vector>

#include "launch_fixture.h"

/// Launches and their complete expected results. launch_table_test simulates all of them without a
/// window; launch_test and peer_launch_test run some of them with the built executable.
namespace quillon::tests {

/// The end of curl in one attempt. A negative status means that curl was not started.
struct CurlEnd {
  int status = 0;
  int milliseconds = 0;
  std::string reply;
};

/// "PROXY" is replaced by the proxy in every text.
struct LaunchRow {
  std::string name;
  /// The members of the overlay.
  std::string overlay;
  std::vector<CurlEnd> attempts;
  /// The window's text: a line for each row that changes, each pause and each attempt.
  std::string shown;
  /// The number of the pause in which the user closes the window, from 1. 0 if the window is not
  /// closed.
  int closedInPause = 0;
  /// The report files. "old" and "stale" are contents from an earlier launch.
  std::string result;
  std::string error = "stale";
  /// The engine's arguments between those of the launcher and the three that it always gets. Empty
  /// if no engine is started.
  std::vector<std::string> switches;
  /// The port of remote debugging on loopback. Empty without remote debugging.
  std::string port;
  /// The profile's items that are removed.
  std::string removed;
  int status = 0;
  /// The line on standard error, without its prefix and the line feed.
  std::string errors;
  /// The engine, if not the stand-in. "no program" is an executable file that the system cannot
  /// run.
  std::string engine;
};

const std::vector<LaunchRow>& launchTable();
const LaunchRow& rowOf(const std::string& name);

/// A launch of a row, with its overlay and its engine, old reports, and a profile to clean.
class TableLaunch : public Launch {
 public:
  TableLaunch(const LaunchRow& row, const std::string& proxy);

  /// The engine's whole command line. Empty if no engine is to be started.
  [[nodiscard]] std::vector<std::string> commandLine() const;
  /// Compares the outcome with the row. The times must be those of the row if `timesAreExact`.
  void expect(const Outcome& outcome, bool timesAreExact) const;

 private:
  [[nodiscard]] std::string masked(std::string text) const;
  [[nodiscard]] std::string missingItems() const;

  const LaunchRow& row_;
  std::string proxy_;
};

/// The text with each `part` replaced.
[[nodiscard]] std::string replaced(std::string text, const std::string& part,
                                   const std::string& by);

}  // namespace quillon::tests
