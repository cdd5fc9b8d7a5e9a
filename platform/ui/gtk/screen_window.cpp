#include "platform/ui/gtk/screen_window.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <utility>

#include "platform/ui/display_text.h"
#include "platform/ui/gtk/frame_label.h"
#include "platform/ui/gtk/window_hints.h"

namespace quillon::platform::ui {
namespace {

/// X11 has a limit of 32,767 device pixels for window sizes. The window manager's frame is added to
/// the window's size.
constexpr int greatestPixels = 32767 - 255;

int rounded(double points) {
  return static_cast<int>(std::lround(points));
}

int boundedHeight(GtkWidget* widget, double points) {
  return std::min(rounded(points), greatestPixels / gtk_widget_get_scale_factor(widget));
}

/// Screen readers read the labels in the order in which they were added.
std::vector<std::reference_wrapper<const Label>> inReadingOrder(const std::deque<Label>& labels) {
  std::vector<std::reference_wrapper<const Label>> ordered(labels.begin(), labels.end());
  std::ranges::stable_sort(
      ordered,
      [](const Rect& one, const Rect& other) {
        return std::pair(-one.y, one.x) < std::pair(-other.y, other.x);
      },
      &Label::frame);
  return ordered;
}

/// Keeps the theme from changing anything on our own background.
void shutThemeOut() {
  static const bool done = [] {
    const OwnedObject<GtkCssProvider> rules(gtk_css_provider_new());
    gtk_css_provider_load_from_data(rules.get(), ".quillon, .quillon * { all: unset; }", -1,
                                    nullptr);
    gtk_style_context_add_provider_for_screen(gdk_screen_get_default(),
                                              GTK_STYLE_PROVIDER(rules.get()), G_MAXUINT);
    return true;
  }();
  (void)done;
}

gboolean drawBackground(GtkWidget*, cairo_t* context, const Window* window) {
  setSource(context, window->background);
  cairo_paint(context);
  return GDK_EVENT_PROPAGATE;
}

/// An event handler with the toolkit's signature.
gboolean closeWindow(GtkWidget* topLevel, GdkEvent*, const Window* window) {
  if (window->delegate != nullptr) window->delegate->windowWillClose();
  gtk_widget_hide(topLevel);
  return GDK_EVENT_STOP;
}

}  // namespace

ScreenWindow::ScreenWindow(Window& window, ActivationPolicy policy)
    : window_(window), topLevel_(gtk_window_new(GTK_WINDOW_TOPLEVEL)) {
  shutThemeOut();
  setUpFrame(policy);
  GtkWidget* const content = gtk_fixed_new();
  gtk_style_context_add_class(gtk_widget_get_style_context(content), "quillon");
  const int height = boundedHeight(topLevel_.get(), window.contentSize.height);
  gtk_widget_set_size_request(content, rounded(window.contentSize.width), height);
  g_signal_connect(content, "draw", G_CALLBACK(drawBackground), &window_);
  addLabels(GTK_FIXED(content), height);
  gtk_widget_show_all(content);
  gtk_container_add(GTK_CONTAINER(topLevel_.get()), content);
}

void ScreenWindow::setUpFrame(ActivationPolicy policy) {
  auto* const topLevel = GTK_WINDOW(topLevel_.get());
  gtk_window_set_title(topLevel, displayText(window_.title).c_str());
  gtk_window_set_resizable(topLevel, FALSE);
  gtk_window_set_keep_above(topLevel, window_.level == Window::Level::floating);
  if (window_.centered) gtk_window_set_position(topLevel, GTK_WIN_POS_CENTER);
  applyWindowHints(topLevel, policy);
  // A window that another process destroys receives the second event.
  for (const char* event : {"delete-event", "destroy-event"}) {
    g_signal_connect(topLevel, event, G_CALLBACK(closeWindow), &window_);
  }
}

/// The `Window`'s coordinates start at its bottom edge, those of the screen at the top. A label
/// that is not completely inside the window is omitted.
void ScreenWindow::addLabels(GtkFixed* content, int height) {
  for (const Label& label : inReadingOrder(window_.labels())) {
    const Rect& frame = label.frame;
    const double bottom = window_.contentSize.height - frame.y;
    if (bottom > height) continue;
    GtkWidget* const widget = makeFrameLabel(label);
    gtk_fixed_put(content, widget, rounded(frame.x), rounded(bottom - frame.height));
    mirrored_.push_back({label, widget, label.text, label.color});
  }
}

void ScreenWindow::mirror() {
  for (Mirrored& shown : mirrored_) {
    if (shown.text != shown.label.text) {
      shown.text = shown.label.text;
      setFrameLabelText(shown.widget, shown.label);
    }
    if (shown.color != shown.label.color) {
      shown.color = shown.label.color;
      setFrameLabelColor(shown.widget, shown.color);
    }
  }
}

void ScreenWindow::show() {
  mirror();
  gtk_window_present(GTK_WINDOW(topLevel_.get()));
}

void ScreenWindow::update() {
  if (gtk_widget_get_visible(topLevel_.get())) mirror();
}

void ScreenWindow::hide() {
  // Handles a close event that arrived before this call.
  while (gtk_events_pending()) gtk_main_iteration_do(FALSE);
  gtk_widget_hide(topLevel_.get());
  gdk_display_sync(gtk_widget_get_display(topLevel_.get()));
}

void ScreenWindow::raise() {
  if (gtk_widget_get_visible(topLevel_.get())) gtk_window_present(GTK_WINDOW(topLevel_.get()));
}

}  // namespace quillon::platform::ui
