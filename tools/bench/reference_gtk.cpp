// The minimum of a program with a window: shows one label and exits once it is drawn.

#include <gtk/gtk.h>

#include <cstdlib>

int main(int count, char* arguments[]) {
  gtk_init(&count, &arguments);
  GtkWidget* window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
  gtk_window_set_default_size(GTK_WINDOW(window), 460, 240);
  gtk_container_add(GTK_CONTAINER(window), gtk_label_new("Preparing"));
  gtk_widget_show_all(window);
  GdkFrameClock* clock = gtk_widget_get_frame_clock(window);
  g_signal_connect(clock, "after-paint", G_CALLBACK(+[] { std::_Exit(0); }), nullptr);
  gtk_main();
}
