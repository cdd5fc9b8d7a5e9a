#include "platform/process/environment.h"
#include "platform/ui/display.h"

namespace quillon::platform::ui {

bool mayHaveDisplay() {
  const auto isSet = [](const char* name) {
    const auto value = startEnvironment().value(name);
    return value && !value->empty();
  };
  return isSet("DISPLAY") || isSet("WAYLAND_DISPLAY");
}

}  // namespace quillon::platform::ui
