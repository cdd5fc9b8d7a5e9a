#pragma once

#include "platform/ui/alert.h"

namespace quillon::platform::ui {

/// Shows the alert and blocks, handling events, until the user has dismissed it: by its button, by
/// Return or by Escape. Needs no other window and no running event loop. Main thread.
void runAlert(const Alert& alert);

}  // namespace quillon::platform::ui
