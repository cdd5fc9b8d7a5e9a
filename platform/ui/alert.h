#pragma once

#include <string>

namespace quillon::platform::ui {

/// A critical message with one button. UTF-8 texts, never read as markup.
struct Alert {
  std::string messageText;
  std::string informativeText;
  std::string buttonTitle;
};

}  // namespace quillon::platform::ui
