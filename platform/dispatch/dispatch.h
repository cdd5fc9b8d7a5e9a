#pragma once

#include <chrono>
#include <functional>

/// The main thread's task queue, and background threads. Tasks posted to the main thread run there
/// in the order in which they were posted, never inside the post. The queue is not locked while a
/// task runs, so a task may post others. Tasks that are queued when the process ends never run.
namespace quillon::platform {

using Task = std::function<void()>;

/// Whether the caller runs on the process's first thread.
[[nodiscard]] bool isMainThread();

/// Adds a task to the main thread's queue and returns at once. Any thread.
void postToMain(Task task);

/// Runs a task on a background thread, where it may block, and does not wait for it. On macOS this
/// is the system's global queue of quality of service user-initiated, elsewhere a new thread. If no
/// thread can be started, the task is posted to the main thread: it then runs late and blocks that
/// thread. Any thread.
void runInBackground(Task task);

/// Blocks the calling thread.
void sleepFor(std::chrono::milliseconds duration);

/// For the event loop of a user interface:

/// Runs all tasks posted before the call. If a task calls it, the tasks posted since that task
/// began run before those that were queued after it. Main thread.
void runPostedTasks();

/// Blocks until a task has been posted. Main thread.
void waitForPostedTasks();

/// Makes each later post call `wake`, on the posting thread. An event loop that waits for other
/// events uses it to call `runPostedTasks`. Main thread, before anything is posted.
void setWakeUp(void (*wake)());

}  // namespace quillon::platform
