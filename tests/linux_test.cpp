#include <fcntl.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <functional>
#include <thread>

#include "discovery/egress_discovery.h"
#include "engine/override_switches.h"
#include "launch_table.h"
#include "platform/core/descriptor.h"
#include "platform/files/file_replacement.h"
#include "platform/files/files.h"
#include "platform/process/child_process.h"
#include "platform/process/signals.h"

/// Tests that need Linux, for example /proc.
namespace {

bool modesAreRefused = false;
std::function<void()> afterMkdir;

}  // namespace

// Replaced in the whole test program. A test can make it fail as on some file systems.
// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name): the system's begin with
// "__".
extern "C" int fchmod(int descriptor, mode_t mode) noexcept {
  errno = EPERM;
  return modesAreRefused ? -1 : static_cast<int>(::syscall(SYS_fchmod, descriptor, mode));
}

extern "C" int mkdirat(int folder, const char* name, mode_t mode) noexcept {
  const auto result = static_cast<int>(::syscall(SYS_mkdirat, folder, name, mode));
  if (afterMkdir) afterMkdir();
  return result;
}

namespace quillon::tests {
namespace {

using Texts = std::vector<std::string>;

/// The signals of a set in the text of a /proc/PID/status, without the two that the C library
/// reserves and changes in every child that it spawns.
std::uint64_t signalsIn(const std::string& status, const std::string& name) {
  constexpr std::uint64_t ofTheLibrary = 0x180000000;
  const std::size_t start = status.find("\n" + name + ":\t") + name.size() + 3;
  return std::stoull(status.substr(start), nullptr, 16) & ~ofTheLibrary;
}

platform::ChildRun runShell(const std::string& script) {
  return platform::runChild({"/bin/sh", {"-c", script}}, {std::chrono::seconds(10), 1000, 100});
}

TEST(Files, ReportIsWrittenWhereModesAreRefused) {
  const TemporaryFolder folder;
  modesAreRefused = true;
  EXPECT_TRUE(platform::replaceFile(folder.path() / "new/file", [] { return "text"; }));
  modesAreRefused = false;
  EXPECT_EQ("text", contentOf(folder.path() / "new/file"));
}

TEST(Files, ModeIsNotSetThroughALinkInTheNewFoldersPlace) {
  const TemporaryFolder folder;
  folder.write("outside/file", "x");
  std::filesystem::permissions(folder.path() / "outside", std::filesystem::perms(0755));
  afterMkdir = [&] {
    std::filesystem::remove(folder.path() / "new");
    std::filesystem::create_symlink("outside", folder.path() / "new");
  };
  EXPECT_TRUE(platform::createFolders(folder.path() / "new"));
  afterMkdir = nullptr;
  EXPECT_EQ(std::filesystem::perms(0755),
            std::filesystem::status(folder.path() / "outside").permissions());
}

TEST(Files, ReadsFilesWhoseSizeIsSaidToBeNone) {
  EXPECT_NE("", platform::readFile("/proc/self/status"));
}

TEST(Process, ChildGetsThreeStreamsAndTheStartsEnvironmentAndMask) {
  (void)platform::startEnvironment();
  (void)platform::startSignalMask();
  ::setenv("QUILLON_LATE", "x", 1);
  const platform::UniqueFd inherited(::dup(STDIN_FILENO));
  std::thread([] {
    sigset_t blocked;
    ::sigfillset(&blocked);
    ::pthread_sigmask(SIG_SETMASK, &blocked, nullptr);
    EXPECT_EQ(
        "[] 0 1 2 3 SigBlk: 0000000000000000\n",
        runShell("echo [$QUILLON_LATE] $(ls /dev/fd/) $(grep SigBlk /proc/self/status)").output);
  }).join();
}

TEST(Process, IgnoredSignalsStayIgnoredAndTheStatusSurvivesThat) {
  const auto before = std::signal(SIGCHLD, SIG_IGN);
  const auto hangUp = std::signal(SIGHUP, SIG_IGN);
  const platform::ChildRun run = runShell("grep SigIgn /proc/$PPID/status | tail -c 2; exit 7");
  EXPECT_EQ("1\n", run.output) << "the last digit: SIGHUP is, SIGINT is not";
  EXPECT_EQ(7, run.exitStatus);
  EXPECT_EQ(SIG_IGN, std::signal(SIGHUP, hangUp));
  EXPECT_EQ(SIG_IGN, std::signal(SIGCHLD, before));
}

TEST(PassthroughLaunch, EngineInheritsWhatTheLauncherWasGiven) {
  Launch launch;
  launch.environment.insert(launch.environment.begin(),
                            {"no equals sign", "EMPTY=", "TWICE=1", "TWICE=2", "BYTES=\xFF\n"});
  launch.prepare = [] {
    ::close(STDIN_FILENO);
    ::dup2(STDOUT_FILENO, 7);
    sigset_t blocked;
    ::sigemptyset(&blocked);
    ::sigaddset(&blocked, SIGUSR2);
    ::sigprocmask(SIG_SETMASK, &blocked, nullptr);
  };
  const auto before = std::signal(SIGPIPE, SIG_IGN);
  const std::uint64_t ignored = signalsIn(contentOf("/proc/self/status"), "SigIgn");
  const Outcome outcome = launch.run();
  std::signal(SIGPIPE, before);
  ASSERT_TRUE(outcome.engine.contains('E'));
  launch.environment.push_back("QUILLON_ENGINE_BIN=" + launch.engine);
  EXPECT_EQ(launch.environment, outcome.engine.at('E'));
  EXPECT_EQ((Texts{"1", "2", "7"}), sortedFacts(outcome, 'F'));
  EXPECT_EQ(1U << (SIGUSR2 - 1), signalsIn(outcome.engine.at('L')[0], "SigBlk"));
  EXPECT_EQ(ignored, signalsIn(outcome.engine.at('L')[0], "SigIgn"));
  EXPECT_TRUE(outcome.engine.contains('S')) << "the engine leads a session of its own";
}

TEST(PassthroughLaunch, TellsTheMachineThatItRunsOn) {
  Launch launch;
  launch.prepare = [] {
    cpu_set_t one;
    CPU_ZERO(&one);
    CPU_SET(static_cast<std::size_t>(::sched_getcpu()), &one);
    ::sched_setaffinity(0, sizeof(one), &one);
  };
  const std::string text = contentOf("/proc/meminfo");
  const auto kibibytes = std::stoull(text.substr(text.find("MemTotal:") + 9));
  const Texts arguments = sortedFacts(launch.run(), 'A');
  for (const std::string& expected : {"--device-memory=" + *deviceMemoryValue(kibibytes << 10),
                                      std::string("--hardware-concurrency=1")}) {
    EXPECT_EQ(1, std::count(arguments.begin(), arguments.end(), expected)) << expected;
  }
}

TEST(ChromiumLaunch, RunningBrowserHasOurSwitchesAndAnswersOnLoopback) {
  const Path chromium = "/usr/lib/chromium/chromium";
  if (!std::filesystem::exists(chromium)) GTEST_SKIP() << "Debian's chromium is not installed";
  const LaunchRow row{.overlay = R"("device-memory":1,"hardware-concurrency":1,"speech-voices":1,
                    "start-page":"about:blank","cdp-tcp-port":"19222")",
                      .switches = {"about:blank"},
                      .port = "19222"};
  TableLaunch launch(row, "");
  launch.engine = chromium;
  launch.arguments = {"--user-data-dir=" + launch.profile.path().native()};
  launch.arguments.insert(
      launch.arguments.end(),
      {"--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
       "--disable-background-networking", "--disable-component-update", "--disable-sync"});
  launch.prepare = [] { ::dup2(::open("/dev/null", O_WRONLY), STDOUT_FILENO); };
  ::prctl(PR_SET_CHILD_SUBREAPER, 1);
  ASSERT_EQ(0, launch.run().status);
  const std::string own = std::to_string(::getpid());
  const std::string browser = contentOf("/proc/" + own + "/task/" + own + "/children");
  const auto version =
      platform::runChild({curlExecutable,
                          {"--silent", "--fail", "--retry", "30", "--retry-delay", "1",
                           "--retry-connrefused", "http://127.0.0.1:19222/json/version"}},
                         {std::chrono::seconds(40), 10000, 10000});
  EXPECT_EQ(0, version.exitStatus);
  EXPECT_NE(std::string::npos, version.output.find("webSocketDebuggerUrl")) << version.output;
  const std::string started = contentOf("/proc/" + std::to_string(std::stoi(browser)) + "/cmdline");
  ::kill(-std::stoi(browser), SIGKILL);
  std::string expected;
  for (const std::string& argument : launch.commandLine()) expected += argument + '\0';
  EXPECT_EQ(expected, started);
}

}  // namespace
}  // namespace quillon::tests
