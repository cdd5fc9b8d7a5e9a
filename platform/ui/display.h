#pragma once

namespace quillon::platform::ui {

/// Whether it is worth loading a toolkit: false when there is certainly no display.
[[nodiscard]] bool mayHaveDisplay();

}  // namespace quillon::platform::ui
