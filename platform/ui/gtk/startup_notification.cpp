#include "platform/ui/gtk/startup_notification.h"

#include <gdk/gdkwayland.h>
#include <gdk/gdkx.h>

#include <cstdlib>

namespace quillon::platform::ui {
namespace {

constexpr const char* variable = "DESKTOP_STARTUP_ID";

}  // namespace

std::string takeStartupId() {
  const char* const value = std::getenv(variable);
  std::string id(value == nullptr ? "" : value);
  ::unsetenv(variable);
  return id;
}

void passStartupId(const std::string& id) {
  if (id.empty()) return;
  GdkDisplay* const display = gdk_display_get_default();
  if (GDK_IS_X11_DISPLAY(display)) {
    gdk_x11_display_set_startup_notification_id(display, id.c_str());
  }
  if (GDK_IS_WAYLAND_DISPLAY(display)) {
    gdk_wayland_display_set_startup_notification_id(display, id.c_str());
  }
}

}  // namespace quillon::platform::ui
