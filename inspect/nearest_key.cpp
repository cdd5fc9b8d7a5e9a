#include "inspect/nearest_key.h"

#include <algorithm>
#include <string>

#include "platform/text/text.h"

namespace quillon {
namespace {

std::string plain(std::string_view key) {
  std::string text = platform::lowerCased(key);
  std::replace(text.begin(), text.end(), '_', '-');
  return text;
}

/// Letters left out, put in, replaced, or swapped with their neighbour.
std::size_t distance(std::string_view from, std::string_view to) {
  std::vector<std::size_t> beforeLast(to.size() + 1);
  std::vector<std::size_t> last(to.size() + 1);
  std::vector<std::size_t> row(to.size() + 1);
  for (std::size_t j = 0; j <= to.size(); ++j) row[j] = j;
  for (std::size_t i = 1; i <= from.size(); ++i) {
    beforeLast.swap(last);
    last.swap(row);
    row[0] = i;
    for (std::size_t j = 1; j <= to.size(); ++j) {
      const std::size_t replaced = last[j - 1] + (from[i - 1] == to[j - 1] ? 0 : 1);
      row[j] = std::min({last[j] + 1, row[j - 1] + 1, replaced});
      const bool isSwapped = i > 1 && j > 1 && from[i - 1] == to[j - 2] && from[i - 2] == to[j - 1];
      if (isSwapped) row[j] = std::min(row[j], beforeLast[j - 2] + 1);
    }
  }
  return row[to.size()];
}

std::size_t tolerance(std::string_view known) {
  constexpr std::size_t lettersForOneError = 5;
  constexpr std::size_t most = 3;
  return std::clamp(known.size() / lettersForOneError, std::size_t{1}, most);
}

}  // namespace

std::string_view nearestKey(std::string_view key, const std::vector<std::string_view>& known) {
  // No key is near that long, and the time taken grows with the length.
  constexpr std::size_t longestTypingError = 64;
  if (key.size() > longestTypingError) return {};
  const std::string typed = plain(key);
  std::string_view nearest;
  std::size_t least = longestTypingError;
  for (const std::string_view candidate : known) {
    const std::size_t off = distance(typed, plain(candidate));
    if (off > tolerance(candidate) || off >= least) continue;
    least = off;
    nearest = candidate;
  }
  return nearest;
}

}  // namespace quillon
