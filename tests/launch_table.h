#pragma once

#include <string>
#include <vector>

#include "launch_fixture.h"

/// Launches and all that comes of them, literally: played without a window by launch_table_test,
/// some of them run for real by launch_test and peer_launch_test.
namespace quillon::tests {

/// What curl did in one attempt. A negative status: it was not even started.
struct CurlEnd {
  int status = 0;
  int milliseconds = 0;
  std::string reply;
};

/// "PROXY" stands for the proxy in every text.
struct LaunchRow {
  std::string name;
  /// The members of the overlay.
  std::string overlay;
  std::vector<CurlEnd> attempts;
  /// What the window shows: a line for each row that changes, each pause and each attempt.
  std::string shown;
  /// The pause in which the user closes the window, from 1.
  int closedInPause = 0;
  /// The report files; "old" and "stale" are what an earlier launch left there.
  std::string result;
  std::string error = "stale";
  /// The engine's arguments between those of the launcher and the three that it always gets; no
  /// engine was started without any.
  std::vector<std::string> switches;
  /// Of remote debugging on loopback; without it there is none.
  std::string port;
  /// Which of the profile's items are gone.
  std::string removed;
  int status = 0;
  /// The line on standard error, without its mark and the line feed.
  std::string errors;
  /// Instead of the stand-in; "no program" for an executable file that the system cannot run.
  std::string engine;
};

const std::vector<LaunchRow>& launchTable();
const LaunchRow& rowOf(const std::string& name);

/// A launch of the row: its overlay and its engine, old reports, and a profile to be cleaned.
class TableLaunch : public Launch {
 public:
  TableLaunch(const LaunchRow& row, const std::string& proxy);

  /// The engine's whole command line; empty when none is to be started.
  [[nodiscard]] std::vector<std::string> commandLine() const;
  /// Compares what came of it with the row. Times are those of the row if `timesAreExact`.
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
