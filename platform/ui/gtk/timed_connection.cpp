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

/// The thread blocks all signals, because it may run until the process ends.
void startWithoutSignals(std::packaged_task<Connection()> task) {
  sigset_t all;
  sigset_t former;
  ::sigfillset(&all);
  ::pthread_sigmask(SIG_SETMASK, &all, &former);
  try {
    std::thread(std::move(task)).detach();
  } catch (const std::system_error&) {
    // The task is destroyed without a result, which ends the wait for it.
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
