#include "platform/ui/gtk/lost_display.h"

#include <gdk/gdkwayland.h>
#include <gdk/gdkx.h>
#include <poll.h>
#include <wayland-client-core.h>

#include <csetjmp>

#include "platform/dispatch/dispatch.h"

namespace quillon::platform::ui {
namespace {

/// Does not return.
void (*lostDisplayHandler)() = nullptr;

/// Where the handler leads while the toolkit connects.
std::jmp_buf beforeConnecting;

/// The toolkit polls the connection itself and flushes it: it sees an end that libwayland has not
/// seen.
bool isLost(wl_display* display) {
  constexpr short onlyErrorAndHangUp = 0;
  pollfd connection{::wl_display_get_fd(display), onlyErrorAndHangUp, 0};
  return ::wl_display_get_error(display) != 0 || ::poll(&connection, 1, 0) > 0;
}

}  // namespace

bool connectWithDisplay(bool (*connect)(), void (*handle)()) {
  // With its first display the toolkit sets a handler of its own, which ends the process: make it
  // do so before.
  g_type_class_ref(GDK_TYPE_X11_DISPLAY);
  XSetIOErrorHandler([](Display*) {
    lostDisplayHandler();
    return 0;
  });
  bool isConnected = false;
  // An exception could not pass through the libraries in between, which are in C.
  // NOLINTBEGIN(cert-err52-cpp)
  lostDisplayHandler = [] { std::longjmp(beforeConnecting, 1); };
  if (setjmp(beforeConnecting) == 0) isConnected = connect();
  // NOLINTEND(cert-err52-cpp)
  lostDisplayHandler = handle;
  return isConnected;
}

void noticeLostDisplay() {
  if (lostDisplayHandler == nullptr || !isMainThread()) return;
  GdkDisplay* const display = gdk_display_get_default();
  if (!GDK_IS_WAYLAND_DISPLAY(display)) return;
  if (isLost(gdk_wayland_display_get_wl_display(display))) lostDisplayHandler();
}

}  // namespace quillon::platform::ui
