#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/text/json.h"
#include "platform/ui/window.h"

/// The list of the overlay's active settings in the lower part of the splash window.
namespace quillon {

struct OverridesSummary {
  /// The active top-level keys, in ascending order.
  std::vector<std::string> activeKeys;
  /// The active raw engine switches, in ascending order.
  std::vector<std::string> switchKeys;
  /// The overlay's object of raw switches, not owned. Null if there is none.
  const platform::JsonObject* switchObject = nullptr;
};

/// A value as the user reads it: strings unchanged, other values as compact JSON, an empty text for
/// null and for a null pointer. Pure.
[[nodiscard]] std::string overlayValueText(const platform::JsonValue* value);

/// The summary of an overlay. The object can be null; otherwise it must outlive the summary. Pure.
[[nodiscard]] OverridesSummary summarizeOverlay(const platform::JsonObject* overlayObject);

/// The height of the summary in the window, in points. 0 if the summary is empty. Pure.
[[nodiscard]] double summaryHeight(const OverridesSummary& summary);

/// One line of the summary: the key, truncated or padded to `keyWidth` characters, two spaces, and
/// the value, truncated if it is long. Lengths are in user-perceived characters. Pure.
[[nodiscard]] std::string summaryLine(std::string_view key, std::string_view valueText,
                                      std::size_t keyWidth);

/// Adds the summary's labels to the window: the raw switches at the bottom, the active overrides
/// above them. Adds nothing if the summary is empty. Main thread.
void layoutOverridesSummary(platform::ui::Window& window, const OverridesSummary& summary,
                            const platform::JsonObject* overlayObject);

}  // namespace quillon
