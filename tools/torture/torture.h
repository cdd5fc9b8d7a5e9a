#pragma once

#include <optional>
#include <string>

/// Ways to torture the launcher. Each prints what went wrong and how much was tried, and returns
/// the exit status: 0 when nothing went wrong. With a proxy launches have a window, else none.
namespace quillon::torture {

int runFaults(const std::optional<std::string>& proxy);
int runDeaths(const std::optional<std::string>& proxy, int count);
int runSurroundings(const std::optional<std::string>& proxy);
int runLoad(int count, bool sameProfile);

}  // namespace quillon::torture
