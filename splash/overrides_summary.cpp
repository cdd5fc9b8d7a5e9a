#include "splash/overrides_summary.h"

#include <algorithm>

#include "overlay/overlay_keys.h"
#include "overlay/true_values.h"
#include "platform/text/text.h"
#include "splash/colors.h"

namespace quillon {
namespace {

namespace ui = platform::ui;
using platform::JsonObject;
using platform::JsonValue;

constexpr std::string_view rawSwitchesKey = overlayKey("chrome-command-line").name;
constexpr std::string_view ellipsis = "…";

constexpr double left = 16;
constexpr double bottom = 16;
constexpr double lineWidth = 428;
constexpr double lineHeight = 18;
constexpr double headerGap = 4;
constexpr double sectionGap = 8;
constexpr double fontSize = 11;
constexpr std::size_t widestKey = 28;

template <class Predicate>
std::vector<std::string> sortedKeys(const JsonObject& object, Predicate isListed) {
  std::vector<std::string> keys;
  for (const auto& [key, value] : object.members()) {
    if (isListed(key) && isActiveOverlayValue(value)) keys.push_back(key);
  }
  std::sort(keys.begin(), keys.end());
  return keys;
}

/// A header, a line for each entry, and the gap below the header.
double sectionHeight(std::size_t entries) {
  return entries == 0 ? 0 : lineHeight * static_cast<double>(entries + 1) + headerGap;
}

/// The text if it has at most `longest` characters, otherwise its first `kept` and an ellipsis.
std::string shortened(std::string_view text, std::size_t longest, std::size_t kept) {
  if (platform::firstCharacters(text, longest).size() == text.size()) return std::string(text);
  return std::string(platform::firstCharacters(text, kept)).append(ellipsis);
}

std::size_t keyWidthFor(const std::vector<std::string>& keys) {
  std::size_t width = 0;
  for (const std::string& key : keys) {
    width = std::max(width, platform::characterCount(key, widestKey));
  }
  return width;
}

void addSummaryRow(ui::Window& window, double y, std::string_view key, std::string_view valueText,
                   std::size_t keyWidth) {
  window.addLabel({.text = summaryLine(key, valueText, keyWidth),
                   .font = {ui::Font::Family::monospacedSystem, fontSize},
                   .color = colors::summaryRow,
                   .frame = {left, y, lineWidth, lineHeight}});
}

void addSummaryHeader(ui::Window& window, double y, std::string text) {
  window.addLabel({.text = std::move(text),
                   .font = {ui::Font::Family::system, fontSize, ui::Font::Weight::bold},
                   .color = colors::dimText,
                   .frame = {left, y, lineWidth, lineHeight}});
}

struct Section {
  std::string_view title;
  const std::vector<std::string>& keys;
  const JsonObject* values;
};

/// Adds the labels of a section from `y` upwards. Returns where the next section starts.
double layOutSection(ui::Window& window, const Section& section, double y) {
  if (section.keys.empty() || section.values == nullptr) return y;
  const std::size_t keyWidth = keyWidthFor(section.keys);
  for (auto key = section.keys.rbegin(); key != section.keys.rend(); ++key) {
    addSummaryRow(window, y, *key, overlayValueText(section.values->find(*key)), keyWidth);
    y += lineHeight;
  }
  addSummaryHeader(window, y,
                   std::string(section.title) + " (" + std::to_string(section.keys.size()) + ")");
  return y + lineHeight + headerGap + sectionGap;
}

}  // namespace

std::string overlayValueText(const JsonValue* value) {
  if (value == nullptr || value->as<std::monostate>() != nullptr) return {};
  const auto* text = value->as<std::string>();
  return text == nullptr ? compactJsonText(*value) : *text;
}

OverridesSummary summarizeOverlay(const JsonObject* overlayObject) {
  OverridesSummary summary;
  if (overlayObject == nullptr) return summary;
  summary.activeKeys = sortedKeys(*overlayObject, [](const std::string& key) {
    return !key.starts_with('_') && key != rawSwitchesKey;
  });
  summary.switchObject = overlayObject->find<JsonObject>(rawSwitchesKey);
  if (summary.switchObject != nullptr) {
    summary.switchKeys = sortedKeys(*summary.switchObject, [](const std::string&) { return true; });
  }
  return summary;
}

double summaryHeight(const OverridesSummary& summary) {
  const double active = sectionHeight(summary.activeKeys.size());
  const double raw = sectionHeight(summary.switchKeys.size());
  return active + raw + (active > 0 && raw > 0 ? sectionGap : 0);
}

std::string summaryLine(std::string_view key, std::string_view valueText, std::size_t keyWidth) {
  constexpr std::size_t widestValue = 36;
  constexpr std::size_t keptOfLongValue = 33;
  constexpr std::size_t keptAtLeast = 1;
  std::string line = shortened(key, keyWidth, std::max(keyWidth, keptAtLeast + 1) - 1);
  const std::size_t length = platform::characterCount(line, keyWidth);
  line.append(keyWidth - length, ' ').append("  ");
  return line + shortened(valueText, widestValue, keptOfLongValue);
}

void layoutOverridesSummary(ui::Window& window, const OverridesSummary& summary,
                            const JsonObject* overlayObject) {
  const double y = layOutSection(
      window, {"Raw Chromium switches", summary.switchKeys, summary.switchObject}, bottom);
  layOutSection(window, {"Active overrides", summary.activeKeys, overlayObject}, y);
}

}  // namespace quillon
