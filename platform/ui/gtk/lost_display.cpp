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

/// The handler jumps here while the toolkit connects.
std::jmp_buf beforeConnecting;

/// The toolkit polls and flushes the connection itself, so it can see the end of the connection
/// before libwayland does.
bool isLost(wl_display* display) {
  constexpr short onlyErrorAndHangUp = 0;
  pollfd connection{::wl_display_get_fd(display), onlyErrorAndHangUp, 0};
  return ::wl_display_get_error(display) != 0 || ::poll(&connection, 1, 0) > 0;
}

}  // namespace

bool connectWithDisplay(bool (*connect)(), void (*handle)()) {
  // The toolkit sets its own handler, which ends the process, when this class is initialized.
  // Initialize it first, so that our handler replaces the toolkit's.
  g_type_class_ref(GDK_TYPE_X11_DISPLAY);
  XSetIOErrorHandler([](Display*) {
    lostDisplayHandler();
    return 0;
  });
  bool isConnected = false;
  // An exception cannot pass through the libraries in between, which are written in C.
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
