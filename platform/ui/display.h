#pragma once

namespace quillon::platform::ui {

/// Whether it is worth loading a toolkit: false if there is certainly no display or, on Linux, the
/// stack limit is too low for a toolkit (256 KiB).
[[nodiscard]] bool mayHaveDisplay();

}  // namespace quillon::platform::ui
