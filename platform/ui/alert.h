#pragma once

#include <string>

namespace quillon::platform::ui {

/// A critical message with one button. The texts are UTF-8 and are never interpreted as markup.
struct Alert {
  std::string messageText;
  std::string informativeText;
  std::string buttonTitle;
};

}  // namespace quillon::platform::ui
