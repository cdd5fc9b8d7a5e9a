#include "platform/files/removal_crew.h"

#include <algorithm>
#include <csignal>
#include <utility>

#include "platform/files/tree_walk.h"
#include "platform/host/host.h"

namespace quillon::platform {
namespace {

/// What removes less has ended before a helper would be of use.
constexpr std::size_t entriesBeforeHelp = 1000;

/// What starts meanwhile never handles the process's signals.
class BlockedSignals {
 public:
  BlockedSignals() {
    sigset_t all;
    sigfillset(&all);
    ::pthread_sigmask(SIG_SETMASK, &all, &former_);
  }
  BlockedSignals(const BlockedSignals&) = delete;
  BlockedSignals& operator=(const BlockedSignals&) = delete;
  ~BlockedSignals() { ::pthread_sigmask(SIG_SETMASK, &former_, nullptr); }

 private:
  sigset_t former_{};
};

}  // namespace

void RemovalCrew::remove(RemovalShare share) {
  attempt([&] { TreeWalk(std::move(share), *this).run(); });
}

bool RemovalCrew::wantsShare(std::size_t removedCount) {
  const std::lock_guard lock(mutex_);
  if (isDone_) return false;
  return offers_.size() < idleCount_ || (removedCount >= entriesBeforeHelp && mayGrow());
}

void RemovalCrew::offer(RemovalShare share) {
  const std::lock_guard lock(mutex_);
  mayBeLeft_ = true;
  offers_.push_back(std::move(share));
  if (offers_.size() > idleCount_ && mayGrow()) startHelper();
  changed_.notify_one();
}

void RemovalCrew::giveUpShare() {
  const std::lock_guard lock(mutex_);
  mayBeLeft_ = true;
}

bool RemovalCrew::disband() {
  work();
  for (std::thread& helper : helpers_) helper.join();
  return mayBeLeft_;
}

bool RemovalCrew::mayGrow() {
  if (size_ == 0) size_ = static_cast<std::size_t>(std::clamp(activeProcessorCount(), 1, 8));
  return helpers_.size() + 1 < size_;
}

void RemovalCrew::startHelper() {
  const BlockedSignals blocked;
  try {
    helpers_.emplace_back([this] { work(); });
  } catch (const std::exception&) {
    size_ = helpers_.size() + 1;
  }
}

void RemovalCrew::work() {
  std::unique_lock lock(mutex_);
  while (!isDone_) {
    if (!offers_.empty()) {
      RemovalShare share = std::move(offers_.back());
      offers_.pop_back();
      lock.unlock();
      remove(std::move(share));
      lock.lock();
    } else if (++idleCount_ > helpers_.size()) {
      // Everybody is idle: nobody is left who could offer more.
      isDone_ = true;
      changed_.notify_all();
    } else {
      changed_.wait(lock, [this] { return isDone_ || !offers_.empty(); });
      --idleCount_;
    }
  }
}

}  // namespace quillon::platform
