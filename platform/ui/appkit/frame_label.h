#pragma once

#import <AppKit/AppKit.h>

#include "platform/ui/window.h"

/// A text field for one line of text. The user can neither edit nor select it. Main thread only.
namespace quillon::platform::ui {

/// Makes the field with the label's text, font, colour, frame, alignment and truncation.
/// Autoreleased: the view that it is added to retains it.
[[nodiscard]] NSTextField* makeFrameLabel(const Label& label);

/// sRGB, opaque. Autoreleased.
[[nodiscard]] NSColor* toolkitColor(Color color);

}  // namespace quillon::platform::ui
