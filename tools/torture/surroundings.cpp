// Launches from surroundings that a launcher does not expect.

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>

#include "platform/files/files.h"
#include "torture.h"
#include "trial.h"

namespace quillon::torture {
namespace {

namespace fs = std::filesystem;

/// What a launch does to its process before it becomes the launcher, and what must come of it.
struct Surroundings {
  const char* name;
  /// Changes what will be executed; runs before the fork.
  std::function<void(const Trial&, Execution&)> arrange;
  /// Runs in the new process.
  std::function<void(const Trial&)> enter = [](const Trial&) {};
  bool writesResult = true;
};

void leaveAsIs(const Trial& /*trial*/, Execution& /*execution*/) {}

void limitDescriptors(const Trial& /*trial*/) {
  const rlimit limit{16, 16};
  ::setrlimit(RLIMIT_NOFILE, &limit);
}

void closeStandardStreams(const Trial& /*trial*/) {
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) ::close(stream);
}

void growEnvironment(const Trial& /*trial*/, Execution& execution) {
  constexpr int entries = 20;
  constexpr std::size_t entryBytes = 100000;
  for (int i = 0; i < entries; ++i) {
    execution.environment.push_back(std::to_string(i).append("=").append(entryBytes, 'x'));
  }
}

/// A quarter of the stack may hold arguments and environment.
void growStack(const Trial& /*trial*/) {
  constexpr rlim_t stackBytes = rlim_t{64} << 20;
  rlimit limit{};
  ::getrlimit(RLIMIT_STACK, &limit);
  limit.rlim_cur = stackBytes;
  ::setrlimit(RLIMIT_STACK, &limit);
}

void enterDeletedFolder(const Trial& trial) {
  const Path folder = trial.folder() / "deleted";
  fs::create_directory(folder);
  fs::current_path(folder);
  fs::remove(folder);
}

void lengthenProfilePath(const Trial& trial, Execution& execution) {
  constexpr std::size_t pathBytes = 4000;
  constexpr std::size_t nameBytes = 200;
  std::string path = (trial.folder() / "profile").native();
  while (path.size() + 1 < pathBytes) {
    path.append(1, '/').append(std::min(nameBytes, pathBytes - path.size() - 1), 'p');
  }
  fs::create_directories(path);
  fs::copy_file(trial.folder() / "profile/command-line.json", path + "/command-line.json");
  execution.arguments.back() = "--user-data-dir=" + path;
  execution.profile = path;
}

void becomeNobody(const Trial& /*trial*/) {
  constexpr uid_t nobody = 65534;
  if (::setgid(nobody) != 0 || ::setuid(nobody) != 0) ::_exit(1);
}

void openToNobody(const Trial& trial, Execution& /*execution*/) {
  fs::permissions(trial.folder(), fs::perms(0755));
  std::ofstream log(trial.folder() / "engine-log");
  log.close();
  fs::permissions(trial.folder() / "engine-log", fs::perms(0666));
}

std::vector<Surroundings> allSurroundings() {
  std::vector<Surroundings> all{
      {"standard streams closed", leaveAsIs, closeStandardStreams},
      {"16 descriptors", leaveAsIs, limitDescriptors},
      {"environment of 2 MB", growEnvironment, growStack},
      {"no arguments at all",
       [](const Trial& trial, Execution& execution) {
         execution.arguments.clear();
         execution.profile = trial.folder() / "home/Library/Application Support/Quillon";
         fs::create_directories(execution.profile);
         fs::copy_file(trial.folder() / "profile/command-line.json",
                       execution.profile / "command-line.json");
       }},
      {"current folder deleted", leaveAsIs, enterDeletedFolder},
      {"profile path of 4,000 bytes", lengthenProfilePath},
  };
  if (::geteuid() == 0) {
    all.push_back({"another user's profile", openToNobody, becomeNobody, false});
  } else {
    std::puts("surroundings: another user's profile: skipped, takes root");
  }
  return all;
}

std::optional<std::string> resultComplaint(const Surroundings& surroundings,
                                           const Execution& execution) {
  const bool has = fs::exists(execution.profile / ".quillon-launcher-result.json");
  if (has == surroundings.writesResult) return std::nullopt;
  return has ? "a result that nobody could write" : "no result";
}

void runIn(const Surroundings& surroundings, const std::string& overlay, Tally& tally) {
  const Trial trial(overlay);
  Execution execution = trial.execution();
  surroundings.arrange(trial, execution);
  const pid_t child = start(execution, [&] { surroundings.enter(trial); });
  const int status = waitForAll(child);
  tally.add(surroundings.name,
            {status == 0 ? outcomeComplaint(status, trial.engineStarts()) : "does not succeed",
             resultComplaint(surroundings, execution), trial.reportComplaint(),
             trial.leftoverComplaint(), trial.outsideComplaint()});
}

/// The one environment in which nothing names an engine, and none is in its place.
void runWithoutEnvironment(const std::string& overlay, Tally& tally) {
  const Trial trial(overlay);
  Execution execution = trial.execution();
  execution.environment.clear();
  const int status = waitForAll(start(execution, [] {}));
  tally.add("no environment",
            {exitStatus(status) == 1 ? std::optional<std::string>() : "the engine cannot be missed",
             trial.reportComplaint(), trial.leftoverComplaint()});
}

/// Yesterday's report comes from the future.
void runInThePast(const std::string& overlay, Tally& tally) {
  const Path library = "/usr/lib/x86_64-linux-gnu/faketime/libfaketime.so.1";
  if (!fs::exists(library)) {
    std::puts("surroundings: time set back: skipped, takes the package faketime");
    return;
  }
  const Trial trial(overlay);
  Execution execution = trial.execution();
  (void)waitForAll(start(execution, [] {}));
  for (const char* entry : {"FAKETIME=@1980-01-01 00:00:00", "DONT_FAKE_MONOTONIC=1"}) {
    execution.environment.emplace_back(entry);
  }
  execution.environment.push_back("LD_PRELOAD=" + library.native());
  const int status = waitForAll(start(execution, [] {}));
  const auto report = platform::readFile(execution.profile / ".quillon-launcher-result.json");
  const bool isDated = report && report->find(R"("ts":"1980-01-01T)") != std::string::npos;
  tally.add("time set back",
            {outcomeComplaint(status, trial.engineStarts() - 1), trial.leftoverComplaint(),
             isDated ? std::optional<std::string>() : "the report has another date"});
}

}  // namespace

int runSurroundings(const std::optional<std::string>& proxy) {
  const std::string overlay = overlayFor(proxy);
  Tally tally(proxy ? "surroundings, windowed" : "surroundings, passthrough");
  for (const Surroundings& surroundings : allSurroundings()) runIn(surroundings, overlay, tally);
  if (!proxy) runWithoutEnvironment(overlay, tally);
  runInThePast(overlay, tally);
  return tally.finish();
}

}  // namespace quillon::torture
