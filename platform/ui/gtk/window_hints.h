#pragma once

#include <gtk/gtk.h>

#include "platform/ui/backend.h"

namespace quillon::platform::ui {

/// What every window of the application has in common: it can be moved and closed but not
/// minimised, and an accessory application's stays out of task bars and pagers. Realizes the
/// window. Main thread.
void applyWindowHints(GtkWindow* window, ActivationPolicy policy);

}  // namespace quillon::platform::ui
