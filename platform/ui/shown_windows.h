#pragma once

#include <map>

#include "platform/ui/window.h"

namespace quillon::platform::ui {

/// A backend's windows on the screen, each found by its `Window`. Main thread only.
template <class ScreenWindow>
class ShownWindows {
 public:
  /// Returns the window on the screen. On the first call, makes it from the `Window` and `more`.
  template <class... More>
  ScreenWindow& of(Window& window, const More&... more) {
    return windows_.try_emplace(&window, window, more...).first->second;
  }

  /// Null for a window that was never shown.
  [[nodiscard]] ScreenWindow* find(const Window& window) {
    const auto found = windows_.find(&window);
    return found == windows_.end() ? nullptr : &found->second;
  }

  void each(void (ScreenWindow::*deed)()) {
    for (auto& [plain, shown] : windows_) (shown.*deed)();
  }

 private:
  std::map<const Window*, ScreenWindow> windows_;
};

}  // namespace quillon::platform::ui
