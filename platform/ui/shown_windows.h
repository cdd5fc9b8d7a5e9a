#pragma once

#include <map>

#include "platform/ui/window.h"

namespace quillon::platform::ui {

/// A backend's real windows by the plain ones that they mirror. Main thread only.
template <class ScreenWindow>
class ShownWindows {
 public:
  /// Makes the real window, from the plain one and `more`, when it is asked for first.
  template <class... More>
  ScreenWindow& of(Window& window, const More&... more) {
    return windows_.try_emplace(&window, window, more...).first->second;
  }

  /// Null for a window that has never been shown.
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
