#include "platform/ui/gtk/timed_connection.h"

#include <chrono>
#include <csignal>
#include <exception>
#include <future>
#include <system_error>
#include <thread>
#include <utility>

namespace quillon::platform::ui {
namespace {

constexpr std::chrono::seconds patience{5};

/// The signals of the process are for other threads, however long this one stays.
void startWithoutSignals(std::packaged_task<Connection()> task) {
  sigset_t all;
  sigset_t former;
  ::sigfillset(&all);
  ::pthread_sigmask(SIG_SETMASK, &all, &former);
  try {
    std::thread(std::move(task)).detach();
  } catch (const std::system_error&) {
    // The task has ended without a result, and with it the waiting.
  }
  ::pthread_sigmask(SIG_SETMASK, &former, nullptr);
}

}  // namespace

std::optional<Connection> connectWithTimeout(std::function<Connection()> connect) {
  std::packaged_task<Connection()> task(std::move(connect));
  std::future<Connection> answer = task.get_future();
  startWithoutSignals(std::move(task));
  if (answer.wait_for(patience) != std::future_status::ready) return std::nullopt;
  try {
    return answer.get();
  } catch (const std::exception&) {
    return std::nullopt;
  }
}

}  // namespace quillon::platform::ui
