// Runs commands in turn, so that other load on the machine affects all of them equally. Prints a
// line for each: the median wall time in milliseconds and the median peak memory in KiB.
//
// usage: run_in_turn ROUNDS PREPARATION -- COMMAND [ARGUMENT...] [-- COMMAND [ARGUMENT...]]...
//
// PREPARATION is a shell command that runs before each timed run, with the command's number (0, 1,
// ...) in "$COMMAND_NUMBER". It may be empty. If a run fails, the program ends with status 1.
//
// Linked statically, because the peak memory of a child includes that of its parent when it was
// started.

#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace {

struct Command {
  std::vector<char*> argumentVector;
  std::vector<double> milliseconds;
  std::vector<double> kibibytes;
};

double median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  const std::size_t middle = values.size() / 2;
  return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

std::vector<Command> commandsIn(char** argument) {
  std::vector<Command> commands;
  for (; *argument != nullptr; ++argument) {
    if (std::strcmp(*argument, "--") == 0) {
      commands.emplace_back();
    } else if (!commands.empty()) {
      commands.back().argumentVector.push_back(*argument);
    }
  }
  for (Command& command : commands) command.argumentVector.push_back(nullptr);
  return commands;
}

bool prepare(const char* preparation, std::size_t number) {
  if (*preparation == '\0') return true;
  ::setenv("COMMAND_NUMBER", std::to_string(number).c_str(), 1);
  return std::system(preparation) == 0;
}

bool runOnce(Command& command) {
  const auto start = std::chrono::steady_clock::now();
  pid_t id = 0;
  char** const argumentVector = command.argumentVector.data();
  if (::posix_spawn(&id, *argumentVector, nullptr, nullptr, argumentVector, ::environ) != 0) {
    return false;
  }
  int status = 0;
  rusage usage{};
  if (::wait4(id, &status, 0, &usage) != id || status != 0) return false;
  const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - start;
  command.milliseconds.push_back(time.count());
  command.kibibytes.push_back(static_cast<double>(usage.ru_maxrss));
  return true;
}

}  // namespace

int main(int count, char* arguments[]) {
  constexpr int firstCommand = 3;
  if (count <= firstCommand) return 2;
  const int rounds = std::atoi(arguments[1]);
  std::vector<Command> commands = commandsIn(arguments + firstCommand);
  for (int round = 0; round < rounds; ++round) {
    for (std::size_t i = 0; i < commands.size(); ++i) {
      if (prepare(arguments[2], i) && runOnce(commands[i])) continue;
      std::fprintf(stderr, "run_in_turn: %s failed\n", commands[i].argumentVector[0]);
      return 1;
    }
  }
  for (const Command& command : commands) {
    std::printf("%.4f %.0f\n", median(command.milliseconds), median(command.kibibytes));
  }
}
