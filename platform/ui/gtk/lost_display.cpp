#include "platform/ui/gtk/lost_display.h"

#include <gdk/gdkwayland.h>
#include <gdk/gdkx.h>
#include <wayland-client-core.h>

#include <csetjmp>

namespace quillon::platform::ui {
namespace {

void (*lostDisplayHandler)() = nullptr;

/// Where a lost display leads as long as the toolkit connects with it.
std::jmp_buf beforeConnecting;

}  // namespace

bool connectWithDisplay(bool (*connect)(), void (*handle)()) {
  // With its first display the toolkit sets a handler of its own, which ends the process: make it
  // do so before.
  g_type_class_ref(GDK_TYPE_X11_DISPLAY);
  // An exception could not pass through the libraries in between, which are in C.
  // NOLINTBEGIN(cert-err52-cpp)
  if (setjmp(beforeConnecting) != 0) return false;
  XSetIOErrorHandler([](Display*) -> int { std::longjmp(beforeConnecting, 1); });
  // NOLINTEND(cert-err52-cpp)
  const bool isConnected = connect();
  lostDisplayHandler = handle;
  XSetIOErrorHandler([](Display*) {
    lostDisplayHandler();
    return 0;
  });
  return isConnected;
}

void noticeLostDisplay() {
  GdkDisplay* const display = gdk_display_get_default();
  if (lostDisplayHandler == nullptr || !GDK_IS_WAYLAND_DISPLAY(display)) return;
  if (::wl_display_get_error(gdk_wayland_display_get_wl_display(display)) != 0) {
    lostDisplayHandler();
  }
}

}  // namespace quillon::platform::ui
