#pragma once

#include <chrono>
#include <functional>

/// The main thread's queue and the way to a background thread. Tasks posted to the main thread run
/// there one after the other, in the order posted, never inside the post; the queue is not locked
/// while one runs, so a task may post more. Tasks left when the process ends never run.
namespace quillon::platform {

using Task = std::function<void()>;

/// Whether the caller runs on the process's first thread.
[[nodiscard]] bool isMainThread();

/// Hands a task to the main thread and returns at once. Any thread.
void postToMain(Task task);

/// Runs a task beside the main thread, where it may block, and does not wait for it: on a Mac on
/// the system's global queue of quality of service user-initiated, elsewhere on a thread of its
/// own. When that has no thread left the task is posted to the main thread: late and blocking it,
/// but done. Any thread.
void runInBackground(Task task);

/// Blocks the calling thread.
void sleepFor(std::chrono::milliseconds duration);

/// For the event loop of a user interface:

/// Runs everything posted so far. When a task calls it, what was posted since the task began runs
/// before the tasks that waited behind it. Main thread.
void runPostedTasks();

/// Blocks until something has been posted. Main thread.
void waitForPostedTasks();

/// `wake` is called, on the posting thread, after each post from now on: it gets an event loop that
/// waits for other things to call `runPostedTasks`. Main thread, before anything is posted.
void setWakeUp(void (*wake)());

}  // namespace quillon::platform
