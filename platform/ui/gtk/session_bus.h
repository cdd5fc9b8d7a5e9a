#pragma once

namespace quillon::platform::ui {

/// Disables the session bus and the accessibility bridge in the live environment, unless the
/// session bus and the accessibility bus both accept a client. Without a session bus the toolkit
/// and its accessibility bridge would start one that no process ends. If one of the two buses did
/// not respond, they would wait indefinitely. Blocks up to five seconds. Main thread, before the
/// toolkit is initialised.
void disableUnresponsiveBuses();

}  // namespace quillon::platform::ui
