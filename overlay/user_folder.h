#pragma once

#include "platform/host/host.h"

namespace quillon {

/// The folder for the overlay and the reports of launches without a profile folder:
/// "Library/Application Support/Quillon" in the home folder. It need not exist. Any thread.
[[nodiscard]] inline platform::Path perUserFolder() {
  return platform::homeFolder() / "Library/Application Support/Quillon";
}

}  // namespace quillon
