#pragma once

#import <Foundation/Foundation.h>

#include <cstddef>
#include <string_view>

#include "platform/ui/display_text.h"

namespace quillon::platform::ui {

/// The text as the toolkit takes it, by the rules of `displayText`. Left to the pool, never nil.
[[nodiscard]] NSString* toolkitText(std::string_view text, std::size_t longest = longestLabelText);

}  // namespace quillon::platform::ui
