#pragma once

#include <condition_variable>
#include <exception>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "platform/core/descriptor.h"

namespace quillon::platform {

/// Folders to remove with their contents: their names in an open folder.
struct RemovalTask {
  UniqueFd parent;
  std::vector<std::string> folders;
};

/// The threads that remove a tree together: the calling thread and further ones, as many as there
/// are processors, at most eight. A further thread starts when a walk that has already removed
/// many entries has folders to hand over. If it cannot be started, the others do its work.
class RemovalWorkers {
 public:
  /// Removes the folders of a task, except those that other threads take over. Throws nothing. Any
  /// thread.
  void remove(RemovalTask task);

  /// Calls `work`. If it throws, because memory or threads run out, some of the work is left.
  template <class Work>
  void attempt(Work work) {
    try {
      work();
    } catch (const std::exception&) {
      abandonTask();
    }
  }

  /// Whether another thread would take a task now from a walk that has removed this many entries.
  /// Any thread.
  bool wantsTask(std::size_t removedCount);

  /// Hands a task to another thread and returns at once. Throws if memory runs out. Any thread.
  void offer(RemovalTask task);

  /// To be called by a walk that cannot go on and leaves the rest of its task. Any thread.
  void abandonTask();

  /// Works until all tasks are done and joins the threads; after that no task is wanted. Returns
  /// true if some folders may be left: a task was abandoned, or walks got in each other's way. Call
  /// it before the object is destroyed.
  bool finish();

 private:
  bool mayGrow();
  void startThread();
  void work();

  /// Guards everything below. At the end the calling thread alone uses `threads_`.
  std::mutex mutex_;
  std::condition_variable changed_;
  std::vector<std::thread> threads_;
  std::vector<RemovalTask> tasks_;
  std::size_t size_ = 0;  ///< how many threads may work, the calling one included; 0: not yet known
  std::size_t idleCount_ = 0;
  bool mayBeLeft_ = false;
  bool isDone_ = false;
};

}  // namespace quillon::platform
