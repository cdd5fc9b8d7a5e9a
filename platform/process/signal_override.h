#pragma once

#include <csignal>

namespace quillon::platform {

/// Gives a signal another disposition as long as the object stands, then the former one back. For
/// the whole process: two threads must not override the same signal at once.
class SignalOverride {
 public:
  SignalOverride(int number, void (*disposition)(int)) : number_(number) {
    struct sigaction temporary = {};
    temporary.sa_handler = disposition;
    ::sigaction(number_, &temporary, &former_);
  }
  SignalOverride(const SignalOverride&) = delete;
  SignalOverride& operator=(const SignalOverride&) = delete;
  ~SignalOverride() { ::sigaction(number_, &former_, nullptr); }

 private:
  int number_;
  struct sigaction former_ = {};
};

}  // namespace quillon::platform
