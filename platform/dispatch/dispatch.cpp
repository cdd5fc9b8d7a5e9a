#include "platform/dispatch/dispatch.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <utility>

namespace quillon::platform {
namespace {

struct MainQueue {
  std::mutex mutex;
  std::condition_variable changed;
  std::deque<Task> tasks;    // guarded by mutex
  void (*wake)() = nullptr;  // guarded by mutex
};

MainQueue& mainQueue() {
  // Never destroyed: a background thread may post while the process ends.
  static MainQueue& queue = *new MainQueue;
  return queue;
}

}  // namespace

void postToMain(Task task) {
  MainQueue& queue = mainQueue();
  void (*wake)() = nullptr;
  {
    const std::lock_guard lock(queue.mutex);
    queue.tasks.push_back(std::move(task));
    wake = queue.wake;
  }
  queue.changed.notify_one();
  if (wake != nullptr) wake();
}

void sleepFor(std::chrono::milliseconds duration) {
  std::this_thread::sleep_for(duration);
}

void runPostedTasks() {
  MainQueue& queue = mainQueue();
  std::deque<Task> tasks;
  {
    const std::lock_guard lock(queue.mutex);
    tasks.swap(queue.tasks);
  }
  for (const Task& task : tasks) task();
}

void waitForPostedTasks() {
  MainQueue& queue = mainQueue();
  std::unique_lock lock(queue.mutex);
  queue.changed.wait(lock, [&] { return !queue.tasks.empty(); });
}

void setWakeUp(void (*wake)()) {
  MainQueue& queue = mainQueue();
  const std::lock_guard lock(queue.mutex);
  queue.wake = wake;
}

}  // namespace quillon::platform
