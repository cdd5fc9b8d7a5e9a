#pragma once

#include "platform/ui/backend.h"

namespace quillon::platform::ui {

/// Shows the alert in front and blocks, handling events, until the user has dismissed it. Needs no
/// other window. Main thread.
void runAlert(const Alert& alert, ActivationPolicy policy);

}  // namespace quillon::platform::ui
