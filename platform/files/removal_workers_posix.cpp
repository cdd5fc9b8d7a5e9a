#include "platform/files/removal_workers.h"

#include <algorithm>
#include <csignal>
#include <utility>

#include "platform/files/tree_walk.h"
#include "platform/host/host.h"

namespace quillon::platform {
namespace {

/// A walk that removes fewer entries ends before a further thread could help.
constexpr std::size_t entriesBeforeSharing = 1000;

/// Threads that start while the object exists do not handle the process's signals.
class BlockedSignals {
 public:
  BlockedSignals() {
    sigset_t all;
    sigfillset(&all);
    ::pthread_sigmask(SIG_SETMASK, &all, &previous_);
  }
  BlockedSignals(const BlockedSignals&) = delete;
  BlockedSignals& operator=(const BlockedSignals&) = delete;
  ~BlockedSignals() { ::pthread_sigmask(SIG_SETMASK, &previous_, nullptr); }

 private:
  sigset_t previous_{};
};

}  // namespace

void RemovalWorkers::remove(RemovalTask task) {
  attempt([&] { TreeWalk(std::move(task), *this).run(); });
}

bool RemovalWorkers::wantsTask(std::size_t removedCount) {
  const std::lock_guard lock(mutex_);
  if (isDone_) return false;
  return tasks_.size() < idleCount_ || (removedCount >= entriesBeforeSharing && mayGrow());
}

void RemovalWorkers::offer(RemovalTask task) {
  const std::lock_guard lock(mutex_);
  mayBeLeft_ = true;
  tasks_.push_back(std::move(task));
  if (tasks_.size() > idleCount_ && mayGrow()) startThread();
  changed_.notify_one();
}

void RemovalWorkers::abandonTask() {
  const std::lock_guard lock(mutex_);
  mayBeLeft_ = true;
}

bool RemovalWorkers::finish() {
  work();
  for (std::thread& thread : threads_) thread.join();
  return mayBeLeft_;
}

bool RemovalWorkers::mayGrow() {
  if (size_ == 0) size_ = static_cast<std::size_t>(std::clamp(activeProcessorCount(), 1, 8));
  return threads_.size() + 1 < size_;
}

void RemovalWorkers::startThread() {
  const BlockedSignals blocked;
  try {
    threads_.emplace_back([this] { work(); });
  } catch (const std::exception&) {
    size_ = threads_.size() + 1;
  }
}

void RemovalWorkers::work() {
  std::unique_lock lock(mutex_);
  while (!isDone_) {
    if (!tasks_.empty()) {
      RemovalTask task = std::move(tasks_.back());
      tasks_.pop_back();
      lock.unlock();
      remove(std::move(task));
      lock.lock();
    } else if (++idleCount_ > threads_.size()) {
      // All threads are idle, so no more tasks can come.
      isDone_ = true;
      changed_.notify_all();
    } else {
      changed_.wait(lock, [this] { return isDone_ || !tasks_.empty(); });
      --idleCount_;
    }
  }
}

}  // namespace quillon::platform
