#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quillon {

/// A line for a human: what it is about, what stands in the margin, and the text.
struct TextRow {
  /// Shown once for the rows in a row that have the same.
  std::string label;
  std::string tag;
  std::string text;
  /// The SGR parameters (ECMA-48) of the tag's colour; none when empty.
  std::string color;
};

struct TextStyle {
  /// Columns in line; otherwise "label: tag: text", which is easy to search.
  bool isAligned = false;
  bool hasColor = false;
};

/// The rows as lines. What a terminal would obey or cannot show is escaped. Pure.
[[nodiscard]] std::string renderRows(const std::vector<TextRow>& rows, const TextStyle& style);

/// "1 file", "2 files".
[[nodiscard]] std::string counted(std::uint64_t count, const std::string& noun);

}  // namespace quillon
