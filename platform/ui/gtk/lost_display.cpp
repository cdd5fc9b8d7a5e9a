#include "platform/ui/gtk/lost_display.h"

#include <gdk/gdkx.h>

namespace quillon::platform::ui {
namespace {

void (*lostDisplayHandler)() = nullptr;

}  // namespace

void setLostDisplayHandler(void (*handle)()) {
  if (!GDK_IS_X11_DISPLAY(gdk_display_get_default())) return;
  lostDisplayHandler = handle;
  XSetIOErrorHandler([](Display*) {
    lostDisplayHandler();
    return 0;
  });
}

}  // namespace quillon::platform::ui
