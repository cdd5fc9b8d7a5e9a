#pragma once

#import <AppKit/AppKit.h>

#include <string>
#include <vector>

#include "platform/ui/appkit/owners.h"
#include "platform/ui/window.h"

@class QuillonWindowDelegate;

namespace quillon::platform::ui {

/// The real window that mirrors a plain one. Main thread only.
class ScreenWindow {
 public:
  /// Builds it without showing it. `window` must outlive it.
  explicit ScreenWindow(Window& window);
  ScreenWindow(const ScreenWindow&) = delete;
  ScreenWindow& operator=(const ScreenWindow&) = delete;
  ~ScreenWindow();

  /// Mirrors what has changed in text and colour, and brings it to the front with the focus.
  void show();
  /// Mirrors what has changed; nothing while hidden.
  void update();
  /// Handles the events that have come in, the closing of the window among them, then takes the
  /// window off the screen.
  void hide();

 private:
  /// A label on the screen and what it shows.
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
  /// The toolkit counts the windows of a hidden application as invisible; ours is still to be seen.
  bool isShown_ = false;
};

}  // namespace quillon::platform::ui
