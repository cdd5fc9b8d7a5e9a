#include "inspect/nearest_key.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <numeric>
#include <string>

namespace quillon {
namespace {

/// Longer keys are not compared: no known key is similar, and an overlay can contain many of them.
constexpr std::size_t longestKey = 32;

/// One row of the table of distances between the prefixes of two keys.
using Row = std::array<std::size_t, longestKey + 1>;

char plain(char letter) {
  if (letter == '_') return '-';
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

std::string plain(std::string_view key) {
  std::string text(key);
  std::transform(text.begin(), text.end(), text.begin(), [](char letter) { return plain(letter); });
  return text;
}

/// The letters that occur, one bit each. Several letters can share a bit.
std::uint64_t lettersOf(std::string_view text) {
  std::uint64_t letters = 0;
  for (const char letter : text) letters |= std::uint64_t{1} << (plain(letter) & 0x3F);
  return letters;
}

/// Whether the distance can be `most` or less: each error explains one letter that the other key
/// does not contain.
bool mayBeNear(std::string_view key, std::string_view other, std::size_t most) {
  if (key.size() > other.size() + most || other.size() > key.size() + most) return false;
  const int strange = std::popcount(lettersOf(key) & ~lettersOf(other));
  return static_cast<std::size_t>(strange) <= most;
}

/// The number of letters that are missing, added, replaced or swapped with their neighbour. Stops
/// early with a greater number than `most` if there are more.
std::size_t distance(std::string_view from, std::string_view to, std::size_t most) {
  std::array<Row, 3> rows{};
  std::iota(rows[0].begin(), rows[0].end(), 0);
  for (std::size_t i = 1; i <= from.size(); ++i) {
    Row& row = rows.at(i % 3);
    const Row& last = rows.at((i + 2) % 3);
    const Row& beforeLast = rows.at((i + 1) % 3);
    row[0] = i;
    for (std::size_t j = 1; j <= to.size(); ++j) {
      const std::size_t replaced = last[j - 1] + (from[i - 1] == to[j - 1] ? 0 : 1);
      row[j] = std::min({last[j] + 1, row[j - 1] + 1, replaced});
      const bool isSwapped = i > 1 && j > 1 && from[i - 1] == to[j - 2] && from[i - 2] == to[j - 1];
      if (isSwapped) row[j] = std::min(row[j], beforeLast[j - 2] + 1);
    }
    const auto* end = row.begin() + static_cast<std::ptrdiff_t>(to.size()) + 1;
    if (*std::min_element(row.cbegin(), end) > most) return most + 1;
  }
  return rows.at(from.size() % 3)[to.size()];
}

std::size_t tolerance(std::string_view known) {
  constexpr std::size_t lettersForOneError = 5;
  constexpr std::size_t most = 3;
  return std::clamp(known.size() / lettersForOneError, std::size_t{1}, most);
}

}  // namespace

std::string_view nearestKey(std::string_view key, const std::vector<std::string_view>& known) {
  if (key.size() > longestKey) return {};
  const std::string typed = plain(key);
  std::string_view nearest;
  std::size_t least = longestKey;
  for (const std::string_view candidate : known) {
    const std::size_t most = tolerance(candidate);
    if (!mayBeNear(typed, candidate, most)) continue;
    const std::size_t off = distance(typed, plain(candidate), most);
    if (off > most || off >= least) continue;
    least = off;
    nearest = candidate;
  }
  return nearest;
}

}  // namespace quillon
