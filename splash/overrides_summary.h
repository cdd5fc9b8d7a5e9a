#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/text/json.h"
#include "platform/ui/window.h"

/// What a persona overlay switches on, as the lower part of the splash window lists it.
namespace quillon {

struct OverridesSummary {
  /// The top-level keys that are switched on, ascending.
  std::vector<std::string> activeKeys;
  /// The raw engine switches that are switched on, ascending.
  std::vector<std::string> switchKeys;
  /// The overlay's own object of raw switches, not owned; null when it has none.
  const platform::JsonObject* switchObject = nullptr;
};

/// Whether a setting counts as switched on. Off are null, false, numbers equal to zero, blank
/// strings and the words false, 0, off and no in any case, blanks around them included. Pure.
[[nodiscard]] bool isActiveOverlayValue(const platform::JsonValue& value);

/// A value as a user reads it: strings as they are, arrays and objects as compact JSON, nothing for
/// null and for a null pointer. Pure.
[[nodiscard]] std::string overlayValueText(const platform::JsonValue* value);

/// The summary of an overlay, which may be null and must outlive the summary. Pure.
[[nodiscard]] OverridesSummary summarizeOverlay(const platform::JsonObject* overlayObject);

/// The height that the summary takes in the window, in points; 0 for an empty one. Pure.
[[nodiscard]] double summaryHeight(const OverridesSummary& summary);

/// One line of the summary: the key cut or padded to `keyWidth` characters, two blanks, and the
/// value, cut when it is long. Lengths count user-perceived characters. Pure.
[[nodiscard]] std::string summaryLine(std::string_view key, std::string_view valueText,
                                      std::size_t keyWidth);

/// Adds the summary's labels to the window, from its bottom upwards: the raw switches, above them
/// the active overrides. Adds nothing for an empty summary. Main thread.
void layoutOverridesSummary(platform::ui::Window& window, const OverridesSummary& summary,
                            const platform::JsonObject* overlayObject);

}  // namespace quillon
