// Kills launches at random moments.

#include <chrono>
#include <csignal>
#include <random>
#include <thread>

#include "torture.h"
#include "trial.h"

namespace quillon::torture {
namespace {

using Clock = std::chrono::steady_clock;

Clock::duration launchTime(const std::string& overlay) {
  const Trial trial(overlay);
  const auto start = Clock::now();
  (void)waitForAll(trial.start());
  return Clock::now() - start;
}

}  // namespace

int runDeaths(const std::optional<std::string>& proxy, int count) {
  const std::string overlay = overlayFor(proxy);
  std::mt19937 random(20260301);
  std::uniform_int_distribution<Clock::rep> moment(0, launchTime(overlay).count());
  Tally tally(proxy ? "sudden deaths, windowed" : "sudden deaths, passthrough");
  const Trial trial(overlay);
  for (int i = 0; i < count; ++i) {
    trial.fillProfile();
    const Clock::duration lifetime(moment(random));
    const pid_t killed = trial.start();
    std::this_thread::sleep_for(lifetime);
    ::kill(killed, SIGKILL);
    (void)waitForAll(killed);
    const auto afterDeath = trial.reportComplaint();
    const std::size_t starts = trial.engineStarts();
    trial.removeResult();
    const int status = waitForAll(trial.start());
    const auto nextLaunch = trial.hasResult() ? std::optional<std::string>() : "no result";
    tally.add("death " + std::to_string(i),
              {afterDeath, outcomeComplaint(status, trial.engineStarts() - starts), nextLaunch,
               trial.reportComplaint(), trial.outsideComplaint()});
  }
  return tally.finish();
}

}  // namespace quillon::torture
