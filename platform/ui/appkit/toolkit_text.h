#pragma once

#import <Foundation/Foundation.h>

#include <cstddef>
#include <string_view>

#include "platform/ui/display_text.h"

namespace quillon::platform::ui {

/// The text as a toolkit string, after `displayText`. Autoreleased. Never nil.
[[nodiscard]] NSString* toolkitText(std::string_view text, std::size_t longest = longestLabelText);

}  // namespace quillon::platform::ui
