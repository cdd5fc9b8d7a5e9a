#include <dispatch/dispatch.h>
#include <pthread.h>

#include <memory>

#include "platform/dispatch/dispatch.h"

namespace quillon::platform {

bool isMainThread() {
  return ::pthread_main_np() == 1;
}

void runInBackground(Task task) {
  const auto run = [](void* context) { (*std::unique_ptr<Task>(static_cast<Task*>(context)))(); };
  // The user waits for the task, so it has neither the default nor a background quality of service.
  const dispatch_queue_t queue = ::dispatch_get_global_queue(QOS_CLASS_USER_INITIATED, 0);
  ::dispatch_async_f(queue, std::make_unique<Task>(std::move(task)).release(), run);
}

}  // namespace quillon::platform
