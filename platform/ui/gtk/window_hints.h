#pragma once

#include <gtk/gtk.h>

#include "platform/ui/backend.h"

namespace quillon::platform::ui {

/// Sets the hints that all windows of the application have. The window can be moved and closed but
/// not minimised. A window of an accessory application does not appear in task bars and pagers.
/// Realizes the window. Main thread.
void applyWindowHints(GtkWindow* window, ActivationPolicy policy);

}  // namespace quillon::platform::ui
