#pragma once

#include <vector>

#include "platform/ui/backend.h"
#include "platform/ui/gtk/owners.h"

namespace quillon::platform::ui {

/// The real window that mirrors a plain one. Main thread only.
class ScreenWindow {
 public:
  /// Builds it without showing it. `window` must outlive it.
  ScreenWindow(Window& window, ActivationPolicy policy);
  /// Not moved: the toolkit knows its address.
  ScreenWindow(const ScreenWindow&) = delete;
  ScreenWindow& operator=(const ScreenWindow&) = delete;
  ~ScreenWindow() = default;

  /// Mirrors what has changed in text and colour, and brings it to the front with the focus.
  void show();
  /// Mirrors what has changed; nothing while hidden.
  void update();
  /// Handles the events that have come in, the closing of the window among them, and returns once
  /// the window is off the screen.
  void hide();
  /// In front of other windows; nothing while hidden.
  void raise();

 private:
  /// A label on the screen and what it shows.
  struct Mirrored {
    const Label& label;
    GtkWidget* widget;
    std::string text;
    Color color;
  };

  void setUpFrame(ActivationPolicy policy);
  void addLabels(GtkFixed* content, int height);
  void mirror();

  Window& window_;
  OwnedTopLevel topLevel_;
  std::vector<Mirrored> mirrored_;
};

}  // namespace quillon::platform::ui
