#include "platform/ui/appkit/toolkit_text.h"

#include <string>

namespace quillon::platform::ui {

NSString* toolkitText(std::string_view text, std::size_t longest) {
  const std::string valid = displayText(text, longest);
  NSString* const string = [[NSString alloc] initWithBytes:valid.data()
                                                    length:valid.size()
                                                  encoding:NSUTF8StringEncoding];
  return string == nil ? @"" : [string autorelease];
}

}  // namespace quillon::platform::ui
