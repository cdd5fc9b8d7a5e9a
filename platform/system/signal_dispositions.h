#pragma once

/// The signal dispositions that the process was started with. Main thread.
namespace quillon::platform {

/// Keeps the disposition of every signal, before a UI toolkit that changes some is loaded.
void keepSignalDispositions();

/// Puts the kept dispositions back; without kept ones nothing happens.
void restoreSignalDispositions();

}  // namespace quillon::platform
