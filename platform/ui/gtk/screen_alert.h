#pragma once

#include "platform/ui/backend.h"

namespace quillon::platform::ui {

/// Shows the alert in front and handles events until the user dismisses it. Blocks until then.
/// Needs no other window. Main thread.
void runAlert(const Alert& alert, ActivationPolicy policy);

}  // namespace quillon::platform::ui
