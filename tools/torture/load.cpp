// Many launches, eight at a time.

#include <sys/wait.h>

#include <memory>
#include <set>

#include "torture.h"
#include "trial.h"

namespace quillon::torture {
namespace {

constexpr std::size_t atATime = 8;

/// Waits until fewer launches run; counts those that failed. Ended engines are passed over.
std::size_t reapUntil(std::size_t remaining, std::set<pid_t>& running) {
  std::size_t failed = 0;
  while (running.size() > remaining) {
    int status = 0;
    if (running.erase(::waitpid(-1, &status, 0)) == 1 && status != 0) ++failed;
  }
  return failed;
}

}  // namespace

int runLoad(int count, bool sameProfile) {
  Tally tally(sameProfile ? "load, one profile" : "load, a profile each");
  std::vector<std::unique_ptr<Trial>> trials;
  for (std::size_t i = 0; i < (sameProfile ? 1 : atATime); ++i) {
    trials.push_back(std::make_unique<Trial>(overlayFor(std::nullopt)));
  }
  std::set<pid_t> running;
  for (int i = 0; i < count; ++i) {
    const Trial& trial = *trials[static_cast<std::size_t>(i) % trials.size()];
    const std::size_t failed = reapUntil(atATime - 1, running);
    running.insert(trial.start());
    tally.add("launch " + std::to_string(i),
              {failed == 0 ? std::optional<std::string>() : "failed", trial.reportComplaint()});
  }
  const std::size_t failed = reapUntil(0, running);
  (void)waitForAll(0);
  std::size_t starts = 0;
  for (const auto& trial : trials) {
    starts += trial->engineStarts();
    tally.add("in the end", {trial->reportComplaint(), trial->leftoverComplaint()});
  }
  tally.add("in the end", {failed == 0 ? std::optional<std::string>() : "a launch failed",
                           starts == static_cast<std::size_t>(count)
                               ? std::optional<std::string>()
                               : std::to_string(starts) + " engines were started"});
  return tally.finish();
}

}  // namespace quillon::torture
