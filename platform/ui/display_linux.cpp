#include <sys/resource.h>

#include "platform/process/environment.h"
#include "platform/ui/display.h"

namespace quillon::platform::ui {
namespace {

/// The toolkit's image library alone has buffers of 64 KiB on the stack.
bool hasStackForToolkit() {
  constexpr rlim_t enough = rlim_t{256} << 10;
  rlimit limit{};
  return ::getrlimit(RLIMIT_STACK, &limit) != 0 || limit.rlim_cur >= enough;
}

}  // namespace

bool mayHaveDisplay() {
  const auto isSet = [](const char* name) {
    const auto value = startEnvironment().value(name);
    return value && !value->empty();
  };
  return (isSet("DISPLAY") || isSet("WAYLAND_DISPLAY")) && hasStackForToolkit();
}

}  // namespace quillon::platform::ui
