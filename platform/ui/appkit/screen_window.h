#pragma once

#import <AppKit/AppKit.h>

#include <string>
#include <vector>

#include "platform/ui/appkit/owners.h"
#include "platform/ui/window.h"

@class QuillonWindowDelegate;

namespace quillon::platform::ui {

/// The toolkit's window for a `Window`. It shows the state of the `Window`. Main thread only.
class ScreenWindow {
 public:
  /// Builds the window without showing it. `window` must outlive this object.
  explicit ScreenWindow(Window& window);
  ScreenWindow(const ScreenWindow&) = delete;
  ScreenWindow& operator=(const ScreenWindow&) = delete;
  ~ScreenWindow();

  /// Applies changes in text and colour and brings the window to the front with the focus.
  void show();
  /// Applies changes. Does nothing while the window is hidden.
  void update();
  /// Handles pending events, including the closing of the window, then removes the window from the
  /// screen.
  void hide();

 private:
  /// A label on the screen, and the text and colour that it shows.
  struct Mirrored {
    const Label& label;
    NSTextField* field;
    std::string text;
    Color color;
  };

  void setUpFrame();
  void paintBackground();
  void addLabels();
  void mirror();

  Window& window_;
  Owned<QuillonWindowDelegate> delegate_;
  Owned<NSWindow> screenWindow_;
  std::vector<Mirrored> mirrored_;
  /// The toolkit reports the windows of a hidden application as invisible. They are updated anyway.
  bool isShown_ = false;
};

}  // namespace quillon::platform::ui
