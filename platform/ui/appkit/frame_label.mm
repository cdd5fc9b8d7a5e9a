#include "platform/ui/appkit/frame_label.h"

#include "platform/ui/appkit/toolkit_text.h"

namespace quillon::platform::ui {
namespace {

NSFontWeight toolkitWeight(Font::Weight weight) {
  switch (weight) {
    case Font::Weight::regular:
      return NSFontWeightRegular;
    case Font::Weight::semibold:
      return NSFontWeightSemibold;
    case Font::Weight::bold:
      return NSFontWeightBold;
  }
  return NSFontWeightRegular;
}

/// Bold uses the system's bold font, which can differ from the system font of bold weight.
NSFont* toolkitFont(const Font& font) {
  if (font.family == Font::Family::monospacedSystem) {
    return [NSFont monospacedSystemFontOfSize:font.size weight:toolkitWeight(font.weight)];
  }
  if (font.weight == Font::Weight::bold) return [NSFont boldSystemFontOfSize:font.size];
  return [NSFont systemFontOfSize:font.size weight:toolkitWeight(font.weight)];
}

NSTextAlignment toolkitAlignment(Alignment alignment) {
  switch (alignment) {
    case Alignment::natural:
      return NSTextAlignmentNatural;
    case Alignment::center:
      return NSTextAlignmentCenter;
    case Alignment::right:
      return NSTextAlignmentRight;
  }
  return NSTextAlignmentNatural;
}

}  // namespace

NSTextField* makeFrameLabel(const Label& label) {
  NSTextField* const field = [NSTextField labelWithString:toolkitText(label.text)];
  [field setFont:toolkitFont(label.font)];
  [field setTextColor:toolkitColor(label.color)];
  const Rect& frame = label.frame;
  [field setFrame:NSMakeRect(frame.x, frame.y, frame.width, frame.height)];
  [field setAlignment:toolkitAlignment(label.alignment)];
  if (label.lineBreakMode == LineBreakMode::truncateMiddle) {
    [field setLineBreakMode:NSLineBreakByTruncatingMiddle];
  }
  [field setUsesSingleLineMode:YES];
  return field;
}

NSColor* toolkitColor(Color color) {
  constexpr CGFloat full = 255;
  return [NSColor colorWithSRGBRed:color.red / full
                             green:color.green / full
                              blue:color.blue / full
                             alpha:1];
}

}  // namespace quillon::platform::ui
