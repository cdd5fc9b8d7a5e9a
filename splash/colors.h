#pragma once

#include "platform/ui/window.h"

/// The colours of the splash window.
namespace quillon::colors {

inline constexpr platform::ui::Color background{30, 33, 41};
inline constexpr platform::ui::Color brightText{231, 236, 243};
inline constexpr platform::ui::Color dimText{170, 179, 192};
inline constexpr platform::ui::Color summaryRow{190, 200, 215};
inline constexpr platform::ui::Color amber{245, 158, 11};
inline constexpr platform::ui::Color green{74, 222, 128};
inline constexpr platform::ui::Color red{248, 113, 113};

}  // namespace quillon::colors
