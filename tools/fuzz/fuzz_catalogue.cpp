// A catalogue to the switches of each of its profiles.

#include <string_view>

#include "overlay/webgl_catalogue.h"
#include "platform/text/json.h"
#include "platform/text/text.h"
#include "tools/fuzz/require.h"

using namespace quillon;
using fuzz::require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto catalogue = platform::parseJsonObject({reinterpret_cast<const char*>(data), size});
  if (!catalogue) return -1;
  require(switchesOfWebglProfile(*catalogue, "no such profile").empty() ||
          catalogue->find<platform::JsonObject>("profiles")->find("no such profile") != nullptr);
  const auto* profiles = catalogue->find<platform::JsonObject>("profiles");
  if (profiles == nullptr) return 0;
  for (const platform::JsonMember& profile : profiles->members()) {
    const auto switches = switchesOfWebglProfile(*catalogue, profile.key);
    const auto* entries = profile.value.as<platform::JsonObject>();
    require(switches.size() <= (entries == nullptr ? 0 : entries->members().size()));
    for (const std::string& text : switches) {
      require(text.starts_with("--") && !text.starts_with("--_"));
      require(text.find('=') < text.size() - 1);
      require(platform::isValidUtf8(text));
    }
  }
  return 0;
}
