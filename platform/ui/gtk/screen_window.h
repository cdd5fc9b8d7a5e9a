#pragma once

#include <vector>

#include "platform/ui/backend.h"
#include "platform/ui/gtk/owners.h"

namespace quillon::platform::ui {

/// The toolkit's window for a `Window`. It shows the state of the `Window`. Main thread only.
class ScreenWindow {
 public:
  /// Builds the window without showing it. `window` must outlive this object.
  ScreenWindow(Window& window, ActivationPolicy policy);
  /// Not movable: the toolkit holds its address.
  ScreenWindow(const ScreenWindow&) = delete;
  ScreenWindow& operator=(const ScreenWindow&) = delete;
  ~ScreenWindow() = default;

  /// Applies changes in text and colour and brings the window to the front with the focus.
  void show();
  /// Applies changes. Does nothing while the window is hidden.
  void update();
  /// Handles pending events, including the closing of the window, and returns after the window is
  /// removed from the screen.
  void hide();
  /// Brings the window in front of other windows. Does nothing while the window is hidden.
  void raise();

 private:
  /// A label on the screen, and the text and colour that it shows.
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
