#include <fcntl.h>
#include <sys/resource.h>

#include <functional>

#include "trial.h"

namespace quillon::torture {
namespace {

namespace fs = std::filesystem;

struct Surroundings {
  const char* name;
  /// Changes the launch, or what its process does before it executes the launcher.
  std::function<void(Trial&)> arrange;
  int status = 0;
  int windowedStatus = 0;
  /// A part of the result. Empty if the result cannot be written.
  std::string resultPart = R"("schema":1)";
};

void limitTo(decltype(RLIMIT_NOFILE) resource, rlim_t amount) {
  rlimit limit{};
  ::getrlimit(resource, &limit);
  limit.rlim_cur = amount;
  ::setrlimit(resource, &limit);
}

void growEnvironment(Trial& trial) {
  for (int i = 0; i < 20; ++i) {
    trial.launch.environment.push_back(std::to_string(i).append("=").append(100000, 'x'));
  }
  // Arguments and environment may use a quarter of the stack.
  trial.launch.prepare = [] { limitTo(RLIMIT_STACK, rlim_t{64} << 20); };
}

void lengthenProfilePath(Trial& trial) {
  Path path = trial.reports;
  while (path.native().size() < 3800) path /= std::string(200, 'p');
  path /= std::string(3999 - path.native().size(), 'p');
  trial.launch.profile.write(path / "command-line.json",
                             tests::contentOf(trial.reports / "command-line.json"));
  trial.launch.arguments = {"--user-data-dir=" + path.native()};
  trial.reports = path;
}

void takeArguments(Trial& trial) {
  const Path folder = trial.launch.home.path() / "Library/Application Support/Quillon";
  trial.launch.home.write(folder / "command-line.json",
                          tests::contentOf(trial.reports / "command-line.json"));
  trial.reports = folder;
  trial.launch.environment.push_back("QUILLON_ENGINE_BIN=" + trial.launch.engine);
  trial.launch.prepare = [&trial] {
    for (std::string& entry : trial.launch.environment) ::putenv(entry.data());
    char* none[] = {nullptr};
    ::execv(NIMBRA_EXECUTABLE, none);
  };
}

void enterDeletedFolder(Trial& trial) {
  trial.launch.prepare = [folder = trial.launch.home.path() / "deleted"] {
    fs::create_directory(folder);
    fs::current_path(folder);
    fs::remove(folder);
  };
}

/// Launcher and engine are copied to a folder that another user can access, because a checkout may
/// not be accessible to others.
void becomeNobody(Trial& trial) {
  const Path home = trial.launch.home.path();
  fs::copy(trial.launch.executable.parent_path() / "../..", home / "Nimbra.app",
           fs::copy_options::recursive);
  fs::copy(trial.launch.engine, home / "engine");
  trial.launch.executable = home / "Nimbra.app/Contents/MacOS/Nimbra";
  trial.launch.engine = home / "engine";
  const Path log = home / "engine-log";
  trial.launch.home.write(log, "");
  fs::permissions(log, fs::perms(0666));
  for (const Path& folder : {trial.reports, home}) fs::permissions(folder, fs::perms(0755));
  trial.launch.prepare = [] {
    constexpr uid_t nobody = 65534;
    if (::setgid(nobody) != 0 || ::setuid(nobody) != 0) ::_exit(127);
  };
}

/// The existing report is then dated in the future.
void setTimeBack(Trial& trial) {
  trial.launch.home.write(trial.resultFile(), R"({"ts":"2026-03-01T14:05:09Z"})");
  trial.launch.environment.insert(trial.launch.environment.end(),
                                  {"LD_PRELOAD=/usr/lib/x86_64-linux-gnu/faketime/libfaketime.so.1",
                                   "FAKETIME=@1980-01-01 00:00:00", "DONT_FAKE_MONOTONIC=1"});
}

std::vector<Surroundings> allSurroundings() {
  const auto preparing = [](std::function<void()> prepare) {
    return [prepare = std::move(prepare)](Trial& trial) { trial.launch.prepare = prepare; };
  };
  std::vector<Surroundings> all{
      {"standard streams closed", preparing([] { ::close_range(0, 2, 0); })},
      {"16 descriptors", preparing([] { limitTo(RLIMIT_NOFILE, 16); })},
      {"stack of 64 KiB", preparing([] { limitTo(RLIMIT_STACK, rlim_t{64} << 10); })},
      {"environment of 2 MB", growEnvironment},
      {"no arguments at all", takeArguments},
      // No engine and no certificates of the endpoints are named, and there is no engine at the
      // default path.
      {"no environment",
       [](Trial& trial) {
         trial.launch.prepare = [argument = trial.launch.arguments.front()] {
           ::clearenv();
           ::execl(NIMBRA_EXECUTABLE, NIMBRA_EXECUTABLE, argument.c_str(), nullptr);
         };
       },
       1, 42},
      {"current folder deleted", enterDeletedFolder},
      {"profile path of 4,000 bytes", lengthenProfilePath},
      // The endpoints' certificates are not valid yet at this time.
      {"time set back", setTimeBack, 0, 42, R"("ts":"1980-01-01T)"},
  };
  if (::geteuid() == 0) all.push_back({"another user's profile", becomeNobody, 0, 0, ""});
  return all;
}

}  // namespace

int runSurroundings(const std::string& proxy, Tally tally) {
  if (::geteuid() != 0) std::puts("another user's profile: skipped, takes root");
  for (const Surroundings& row : allSurroundings()) {
    Trial trial(proxy);
    row.arrange(trial);
    const int status = trial.run();
    Strings wrong = trial.wrongAfter(status);
    if (status != (proxy.empty() ? row.status : row.windowedStatus)) {
      wrong.push_back("exit status " + std::to_string(status));
    }
    const std::string result = tests::contentOf(trial.resultFile());
    if (row.resultPart.empty() != result.empty() ||
        result.find(row.resultPart) == std::string::npos) {
      wrong.push_back("another result: " + result);
    }
    tally.add(row.name, wrong);
  }
  return tally.finish();
}

}  // namespace quillon::torture
