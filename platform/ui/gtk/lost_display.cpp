#include "platform/ui/gtk/lost_display.h"

#include <gdk/gdkwayland.h>
#include <gdk/gdkx.h>
#include <wayland-client-core.h>

namespace quillon::platform::ui {
namespace {

void (*lostDisplayHandler)() = nullptr;

}  // namespace

void setLostDisplayHandler(void (*handle)()) {
  lostDisplayHandler = handle;
  if (!GDK_IS_X11_DISPLAY(gdk_display_get_default())) return;
  XSetIOErrorHandler([](Display*) {
    lostDisplayHandler();
    return 0;
  });
}

void noticeLostDisplay() {
  GdkDisplay* const display = gdk_display_get_default();
  if (lostDisplayHandler == nullptr || !GDK_IS_WAYLAND_DISPLAY(display)) return;
  if (::wl_display_get_error(gdk_wayland_display_get_wl_display(display)) != 0) {
    lostDisplayHandler();
  }
}

}  // namespace quillon::platform::ui
