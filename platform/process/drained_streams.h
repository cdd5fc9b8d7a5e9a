#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <string>

namespace quillon::platform {

/// One stream of a child being read: what is kept of it and what went by.
struct DrainedStream {
  /// Not owned.
  int descriptor;
  /// Up to so many bytes are kept whole,
  std::size_t wholeLimit;
  /// of more only the first ones; not above `wholeLimit`.
  std::size_t headLimit;
  std::string kept;
  std::uint64_t bytes = 0;

  /// Reads once, blocking when there is nothing; false at the end of the stream.
  bool readSome();
};

/// Reads until both streams end or the deadline has passed. Any thread.
void drain(std::array<DrainedStream, 2>& streams, std::chrono::steady_clock::time_point deadline);

}  // namespace quillon::platform
