#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "platform/files/descriptor.h"
#include "platform/process/child_run.h"
#include "platform/process/drained_streams.h"
#include "platform/process/leashed_child.h"
#include "platform/process/signal_dispositions.h"
#include "platform/process/spawn_parts.h"

namespace quillon::platform {
namespace {

int exitStatusOf(int waitStatus) {
  constexpr int signalBase = 128;
  return WIFEXITED(waitStatus) ? WEXITSTATUS(waitStatus) : signalBase + WTERMSIG(waitStatus);
}

/// Starts the child with the pipes' write ends as its output streams.
int startWithPipes(LeashedChild& child, const ChildCommand& command, const Pipe& output,
                   const Pipe& errors) {
  std::vector<std::string> argumentVector{command.executable.text()};
  argumentVector.insert(argumentVector.end(), command.arguments.begin(), command.arguments.end());
  const std::vector<char*> pointers = pointersTo(argumentVector);
  SpawnFileActions actions;
  SpawnAttributes attributes;
  if (const int error = actions.duplicate(output.writeEnd, STDOUT_FILENO)) return error;
  if (const int error = actions.duplicate(errors.writeEnd, STDERR_FILENO)) return error;
  if (const int error = keepOnlyStandardStreams(actions, attributes)) return error;
  if (const int error = attributes.setSignalMask(startSignalMask())) return error;
  return child.start([&](pid_t& id) {
    return spawn(id, command.executable, actions.get(), attributes, pointers.data(),
                 command.environment.entries());
  });
}

}  // namespace

ChildRun runChild(const ChildCommand& command, const ChildLimits& limits) {
  const auto deadline = LeashedChild::Clock::now() + limits.time;
  auto output = Pipe::open();
  auto errors = Pipe::open();
  if (!output || !errors) return {.startError = errno};
  LeashedChild child;
  if (const int error = startWithPipes(child, command, *output, *errors)) {
    return {.startError = error};
  }
  output->writeEnd.reset();
  errors->writeEnd.reset();
  std::array<DrainedStream, 2> streams{
      {{output->readEnd.get(), limits.outputBytes, limits.headBytes, {}},
       {errors->readEnd.get(), 0, 0, {}}}};
  drain(streams, deadline);
  const int status = child.waitUntil(deadline);
  return {0, exitStatusOf(status), std::move(streams[0].kept), streams[0].bytes};
}

}  // namespace quillon::platform
