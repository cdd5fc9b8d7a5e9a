#pragma once

#import <AppKit/AppKit.h>

#include "platform/ui/window.h"

/// A text field for one line of text that the user can neither edit nor select. Main thread only.
namespace quillon::platform::ui {

/// Makes the field with the label's text, font, colour, frame, alignment and truncation. Left to
/// the pool: the view that it is added to keeps it.
[[nodiscard]] NSTextField* makeFrameLabel(const Label& label);

/// sRGB, opaque. Left to the pool.
[[nodiscard]] NSColor* toolkitColor(Color color);

}  // namespace quillon::platform::ui
