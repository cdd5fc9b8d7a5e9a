#pragma once

namespace quillon::platform::ui {

/// Discards standard error while the object exists: the display libraries write directly to the
/// descriptor. Main thread, while no other thread writes to standard error.
class SilencedStandardError {
 public:
  SilencedStandardError();
  SilencedStandardError(const SilencedStandardError&) = delete;
  SilencedStandardError& operator=(const SilencedStandardError&) = delete;
  ~SilencedStandardError();

 private:
  int former_;
  int formerFlags_;
};

}  // namespace quillon::platform::ui
