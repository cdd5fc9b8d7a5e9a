// usage: torture faults passthrough|windowed
//        torture surroundings passthrough|windowed
//        torture deaths passthrough|windowed COUNT
//        torture load   one|each COUNT
// Windowed launches need the environment of scripts/with-peers.

#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "torture.h"
#include "trial.h"

int main(int count, char* arguments[]) {
  using namespace quillon::torture;
  const std::string_view kind = count > 1 ? arguments[1] : "";
  const std::string_view mode = count > 2 ? arguments[2] : "";
  const int rounds = count > 3 ? std::atoi(arguments[3]) : 0;
  std::optional<std::string> proxy;
  if (mode == "windowed") {
    const char* given = std::getenv("QUILLON_PROXY");
    if (given == nullptr) return 2;
    proxy = given;
  }
  std::setvbuf(stdout, nullptr, _IOLBF, 0);
  adoptOrphans();
  if (kind == "faults") return runFaults(proxy);
  if (kind == "deaths") return runDeaths(proxy, rounds);
  if (kind == "surroundings") return runSurroundings(proxy);
  if (kind == "load") return runLoad(rounds, mode == "one");
  return 2;
}
