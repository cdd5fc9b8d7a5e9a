#include "platform/ui/display_text.h"

#include "platform/text/text.h"

namespace quillon::platform::ui {

std::string displayText(std::string_view text, std::size_t longest) {
  if (text.size() <= longest) return withoutInvalidBytes(text);
  std::string shortened(text.substr(0, longest / 2));
  shortened.append("…").append(text.substr(text.size() - longest / 2));
  return withoutInvalidBytes(shortened);
}

std::string firstParagraphs(std::string_view text) {
  constexpr int mostParagraphs = 8;
  std::size_t end = 0;
  for (int i = 0; i < mostParagraphs; ++i) {
    end = text.find('\n', end);
    if (end == std::string_view::npos) return std::string(text);
    ++end;
  }
  return std::string(text.substr(0, end)) + "…";
}

}  // namespace quillon::platform::ui
