#include "inspect/text_rows.h"

#include <algorithm>

#include "platform/text/text.h"

namespace quillon {
namespace {

bool isControl(char character) {
  constexpr char firstPrintable = 0x20;
  constexpr char remove = 0x7F;
  return (character >= 0 && character < firstPrintable) || character == remove;
}

std::string printable(const std::string& text) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string shown;
  for (const char character : platform::withoutInvalidBytes(text)) {
    if (!isControl(character)) {
      shown += character;
      continue;
    }
    const auto code = static_cast<unsigned char>(character);
    shown += "\\x";
    shown += digits[code / digits.size()];
    shown += digits[code % digits.size()];
  }
  return shown;
}

std::string colored(const std::string& text, const std::string& color, const TextStyle& style) {
  if (!style.hasColor || color.empty() || text.empty()) return text;
  return "\x1B[" + color + "m" + text + "\x1B[0m";
}

std::string padding(std::size_t used, std::size_t width) {
  std::string spaces;
  if (used < width) spaces.append(width - used, ' ');
  return spaces;
}

using Part = std::string TextRow::*;

std::size_t widthOf(const std::vector<TextRow>& rows, Part part) {
  std::size_t width = 0;
  for (const TextRow& row : rows) width = std::max(width, (row.*part).size());
  return width;
}

struct Widths {
  std::size_t label;
  std::size_t tag;
};

/// Label and tag in their columns; the label only where it is not the one of the row above.
std::string alignedStart(const TextRow& row, const std::string& labelAbove, const Widths& widths,
                         const TextStyle& style) {
  constexpr const char* bold = "1";
  constexpr const char* gap = "  ";
  const std::string label = row.label == labelAbove ? "" : row.label;
  std::string start = colored(label, bold, style) + padding(label.size(), widths.label) + gap;
  if (row.tag.empty()) return start;
  return start + colored(row.tag, row.color, style) + padding(row.tag.size(), widths.tag) + gap;
}

std::string plainStart(const TextRow& row) {
  return row.label + ": " + (row.tag.empty() ? "" : row.tag + ": ");
}

}  // namespace

std::string renderRows(const std::vector<TextRow>& rows, const TextStyle& style) {
  const Widths widths{widthOf(rows, &TextRow::label), widthOf(rows, &TextRow::tag)};
  std::string page;
  std::string last;
  for (const TextRow& row : rows) {
    page += style.isAligned ? alignedStart(row, last, widths, style) : plainStart(row);
    page += printable(row.text) + '\n';
    last = row.label;
  }
  return page;
}

std::string counted(std::uint64_t count, const std::string& noun) {
  return std::to_string(count) + ' ' + noun + (count == 1 ? "" : "s");
}

}  // namespace quillon
