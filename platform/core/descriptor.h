#pragma once

#include <unistd.h>

#include <cerrno>
#include <optional>
#include <utility>

/// Owners of POSIX descriptors, and a helper for calls that a signal may interrupt.
namespace quillon::platform {

/// Owns one descriptor and closes it. Closing is never retried: after an interrupted close the
/// descriptor's state is unspecified (POSIX), and on Linux it is already free.
class UniqueFd {
 public:
  UniqueFd() = default;
  explicit UniqueFd(int descriptor) : descriptor_(descriptor) {}
  UniqueFd(UniqueFd&& other) noexcept : descriptor_(other.release()) {}
  UniqueFd& operator=(UniqueFd&& other) noexcept {
    std::swap(descriptor_, other.descriptor_);
    return *this;
  }
  UniqueFd(const UniqueFd&) = delete;
  UniqueFd& operator=(const UniqueFd&) = delete;
  ~UniqueFd() { reset(); }

  [[nodiscard]] bool isOpen() const { return descriptor_ != none; }
  [[nodiscard]] int get() const { return descriptor_; }
  /// Gives up the ownership. The caller closes the descriptor.
  [[nodiscard]] int release() { return std::exchange(descriptor_, none); }
  void reset() {
    if (isOpen()) ::close(release());
  }

 private:
  static constexpr int none = -1;
  int descriptor_ = none;
};

/// Both ends close on exec. This is set before any child can be started.
struct Pipe {
  UniqueFd readEnd;
  UniqueFd writeEnd;

  /// Returns nothing if no descriptor is available.
  static std::optional<Pipe> open();
};

/// Repeats a system call that a signal interrupts. Not for `close`.
template <class Call>
auto retryInterrupted(Call call) {
  auto result = call();
  while (result == -1 && errno == EINTR) result = call();
  return result;
}

}  // namespace quillon::platform
