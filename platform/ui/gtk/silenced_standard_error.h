#pragma once

namespace quillon::platform::ui {

/// Standard error goes nowhere as long as the object stands: the libraries of a display write to
/// the descriptor itself. For the main thread while no other one has anything to say there.
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
