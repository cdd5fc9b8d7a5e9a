#include "inspect/inspect_options.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace quillon {
namespace {

struct Option {
  using Field = bool InspectOptions::*;

  std::string_view name;
  Field field;
  bool value;
};

constexpr std::array<Option, 5> knownOptions{{
    {"--discover", &InspectOptions::discovers, true},
    {"--json", &InspectOptions::printsJson, true},
    {"--no-color", &InspectOptions::mayColor, false},
    {"--help", &InspectOptions::wantsHelp, true},
    {"--version", &InspectOptions::wantsVersion, true},
}};

}  // namespace

InspectOptions readOptions(const std::vector<std::string>& argumentVector) {
  InspectOptions options;
  const auto dashes = std::find(argumentVector.begin(), argumentVector.end(), "--");
  for (auto argument = argumentVector.begin(); argument != dashes; ++argument) {
    if (argument == argumentVector.begin()) continue;
    const auto* known =
        std::find_if(knownOptions.begin(), knownOptions.end(),
                     [&](const Option& option) { return option.name == *argument; });
    if (known == knownOptions.end()) {
      options.error = "unknown option " + *argument + "; the launch's arguments stand behind --";
      return options;
    }
    options.*known->field = known->value;
  }
  if (dashes != argumentVector.end()) {
    options.launchArguments.assign(dashes + 1, argumentVector.end());
  } else if (!options.wantsHelp && !options.wantsVersion) {
    options.error = "no -- and no arguments of a launch behind it";
  }
  return options;
}

std::string helpPage() {
  return R"(usage: nimbra-inspect [--discover] [--json] [--no-color] -- [ARGUMENT...]
       nimbra-inspect --help | --version

Tells what the launcher would do if it were started with the ARGUMENTs: which
overlay it reads, what it derives from the proxy's exit address, what it removes
from the profile, the engine's whole command line, and all that looks like a
mistake. It writes and removes no file, and starts no process but curl, and that
only with --discover.

  --discover   discover for real, as the launch would, through the overlay's proxy
  --json       print one JSON object on one line, for programs
  --no-color   no colour on a terminal either; so does the variable NO_COLOR
  --help       print this page
  --version    print the version

Findings are errors (the launch fails, or a persona value leaks or gets lost),
warnings (a setting has no effect, or another one than it looks like) and notes.
"?" stands for a value that only a discovery tells. Passwords are masked, but
not in JSON, where arguments are what they are; a byte of them that is not UTF-8
is U+FFFD there.

Of overlay keys that the launcher does not know, only those that look like typing
errors are reported: the engine reads the same file.

Exit status: 0 no error or warning found, 1 at least one, 2 called wrongly.

  nimbra-inspect -- --user-data-dir=/profiles/7 --window-size=1280,800
)";
}

}  // namespace quillon
