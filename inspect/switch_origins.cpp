#include "inspect/switch_origins.h"

#include <array>

#include "engine/engine_spawn.h"

namespace quillon {
namespace {

/// So many arguments in a row have one origin.
struct Run {
  std::string_view origin;
  std::size_t count;
};

}  // namespace

std::vector<OriginatedArgument> originsOf(const LaunchPreview& preview) {
  const LaunchRequest& request = preview.values.request;
  const LaunchPlan& plan = preview.plan;
  const std::size_t catalogue = preview.facts.webglSwitches.size();
  // With the start page, which comes last.
  const std::size_t machine = machineSwitches(request.overlay, preview.facts.machine).size();
  const std::size_t debugging =
      debuggingSwitches(request.overlay.cdpTcpPort, request.originalArgs).size();
  std::vector<OriginatedArgument> arguments;
  if (plan.engineArguments.empty()) return arguments;
  const std::size_t before = 1 + request.originalArgs.size() + plan.overrideSwitches.size();
  const std::array<Run, 8> runs{{
      {"engine", 1},
      {"caller", request.originalArgs.size()},
      {"catalogue", catalogue},
      {"persona", plan.overrideSwitches.size() - catalogue - machine},
      {"machine", machine - 1},
      {request.overlay.startPage.empty() ? "launcher" : "persona", 1},
      {"launcher", plan.engineArguments.size() - before - debugging},
      {"persona", debugging},
  }};
  for (const Run& run : runs) {
    for (std::size_t i = 0; i < run.count; ++i) {
      arguments.push_back({run.origin, plan.engineArguments[arguments.size()]});
    }
  }
  return arguments;
}

}  // namespace quillon
