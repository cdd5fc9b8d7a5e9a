#include "platform/ui/gtk/window_hints.h"

namespace quillon::platform::ui {
namespace {

/// Some window managers offer to minimise a window in spite of its hints. The user could not
/// restore a minimised window that no task bar shows.
gboolean undoMinimising(GtkWidget* window, const GdkEventWindowState* event, void*) {
  if ((event->new_window_state & GDK_WINDOW_STATE_ICONIFIED) != 0) {
    gtk_window_deiconify(GTK_WINDOW(window));
  }
  return GDK_EVENT_PROPAGATE;
}

}  // namespace

void applyWindowHints(GtkWindow* window, ActivationPolicy policy) {
  const bool isAccessory = policy == ActivationPolicy::accessory;
  gtk_window_set_skip_taskbar_hint(window, isAccessory);
  gtk_window_set_skip_pager_hint(window, isAccessory);
  g_signal_connect(window, "window-state-event", G_CALLBACK(undoMinimising), nullptr);
  gtk_widget_realize(GTK_WIDGET(window));
  gdk_window_set_functions(gtk_widget_get_window(GTK_WIDGET(window)),
                           GdkWMFunction(GDK_FUNC_MOVE | GDK_FUNC_CLOSE));
}

}  // namespace quillon::platform::ui
