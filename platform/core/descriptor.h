#pragma once

#include <optional>
#include <utility>

/// Owners of POSIX descriptors.
namespace quillon::platform {

/// Owns one descriptor and closes it. Closing is never retried: after an interrupted close the
/// descriptor's state is unspecified (POSIX), and on Linux it is already free.
class UniqueFd {
 public:
  UniqueFd() = default;
  explicit UniqueFd(int descriptor) : descriptor_(descriptor) {}
  UniqueFd(UniqueFd&& other) noexcept : descriptor_(std::exchange(other.descriptor_, none)) {}
  UniqueFd& operator=(UniqueFd&& other) noexcept {
    std::swap(descriptor_, other.descriptor_);
    return *this;
  }
  UniqueFd(const UniqueFd&) = delete;
  UniqueFd& operator=(const UniqueFd&) = delete;
  ~UniqueFd() { reset(); }

  [[nodiscard]] bool isOpen() const { return descriptor_ != none; }
  [[nodiscard]] int get() const { return descriptor_; }
  /// Gives the descriptor up; the caller closes it.
  [[nodiscard]] int release() { return std::exchange(descriptor_, none); }
  void reset();

 private:
  static constexpr int none = -1;
  int descriptor_ = none;
};

/// Both ends close on exec before any child can be started.
struct Pipe {
  UniqueFd readEnd;
  UniqueFd writeEnd;

  /// Nothing when the system has no descriptor left.
  static std::optional<Pipe> open();
};

}  // namespace quillon::platform
