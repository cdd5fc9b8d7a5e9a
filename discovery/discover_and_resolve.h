#pragma once

namespace quillon {

class LauncherDelegate;

/// Finds out where the proxy exits and fills the delegate's persona, `discovery` and `blockEngine`
/// from it; a failure leaves the error file and an empty persona. Shows its progress in the splash
/// window's second step. Once per launch, on the background thread; blocks while curl runs.
void discoverAndResolve(LauncherDelegate& delegate);

}  // namespace quillon
