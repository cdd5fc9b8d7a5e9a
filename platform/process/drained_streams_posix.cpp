#include "platform/process/drained_streams.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace quillon::platform {
namespace {

using Clock = std::chrono::steady_clock;

int millisecondsUntil(Clock::time_point deadline) {
  const auto rest = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
  return static_cast<int>(std::max<std::chrono::milliseconds::rep>(rest.count(), 0));
}

}  // namespace

bool DrainedStream::readSome() {
  // A background thread may have a stack of no more than 64 KiB.
  constexpr std::size_t chunkBytes = 4096;
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init): filling it would be wasted.
  std::array<char, chunkBytes> chunk;
  const ssize_t got = ::read(descriptor, chunk.data(), chunk.size());
  if (got < 0) return errno == EINTR;
  const auto length = static_cast<std::size_t>(got);
  bytes += length;
  const std::size_t limit = bytes > wholeLimit ? headLimit : wholeLimit;
  if (kept.size() < limit) {
    kept.append(chunk.data(), std::min(length, limit - kept.size()));
  } else if (kept.size() > limit) {
    kept.resize(limit);
    kept.shrink_to_fit();
  }
  return got > 0;
}

void drain(std::array<DrainedStream, 2>& streams, Clock::time_point deadline) {
  std::array<pollfd, 2> polled{
      {{streams[0].descriptor, POLLIN, 0}, {streams[1].descriptor, POLLIN, 0}}};
  const auto isOpen = [](const pollfd& entry) { return entry.fd >= 0; };
  while (std::any_of(polled.begin(), polled.end(), isOpen)) {
    const int wait = millisecondsUntil(deadline);
    const int ready = ::poll(polled.data(), polled.size(), wait);
    if (wait == 0 || (ready < 0 && errno != EINTR)) return;
    for (std::size_t i = 0; ready > 0 && i < polled.size(); ++i) {
      if (polled[i].revents != 0 && !streams[i].readSome()) polled[i].fd = -1;
    }
  }
}

}  // namespace quillon::platform
