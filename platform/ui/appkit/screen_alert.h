#pragma once

#include "platform/ui/alert.h"

namespace quillon::platform::ui {

/// Shows the alert and handles events until the user dismisses it with its button, Return or
/// Escape. Blocks until then. Needs no other window and no running event loop. Main thread.
void runAlert(const Alert& alert);

}  // namespace quillon::platform::ui
