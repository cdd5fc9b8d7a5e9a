#pragma once

namespace quillon::platform::ui {

/// Without a session bus the toolkit and its accessibility bridge would start one, which nobody
/// ends, and for one that never says a word they would wait for ever, as for the accessibility bus
/// behind it: unless both take in a member they are told, by the live environment, to do without.
/// Blocks up to five seconds. Main thread, before the toolkit is initialised.
void disableUnresponsiveBuses();

}  // namespace quillon::platform::ui
