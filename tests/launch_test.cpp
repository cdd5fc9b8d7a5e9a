#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>

#include "discovery/egress_discovery.h"
#include "launch_fixture.h"
#include "platform/system/child_run.h"

namespace quillon::tests {
namespace {

/// The command line of an engine with debugging on that port, and these override switches.
std::vector<std::string> commandLine(const Launch& launch,
                                     const std::vector<std::string>& overrides,
                                     const std::string& port) {
  std::vector<std::string> all{launch.engine};
  all.insert(all.end(), launch.arguments.begin(), launch.arguments.end());
  all.insert(all.end(), overrides.begin(), overrides.end());
  all.insert(all.end(),
             {"--hide-crash-restore-bubble",
              "--disable-features=PasswordManagerOnboarding,AutofillEnableAccountWalletStorage",
              "--disable-save-password-bubble", "--remote-debugging-port=" + port,
              "--remote-debugging-address=127.0.0.1"});
  return all;
}

/// An overlay that leaves nothing of the machine in the switches.
const std::string fixedMachine = R"("device-memory":1,"hardware-concurrency":1,"speech-voices":1)";

/// The signals of a set in the text of a /proc/PID/status; without the two that the C library keeps
/// to itself and changes in every child it spawns.
std::uint64_t signalsIn(const std::string& status, const std::string& name) {
  constexpr std::uint64_t ofTheLibrary = 0x180000000;
  const std::size_t start = status.find("\n" + name + ":\t") + name.size() + 3;
  return std::stoull(status.substr(start), nullptr, 16) & ~ofTheLibrary;
}

TEST(PassthroughLaunch, StartsTheEngineAndWritesItsReport) {
  Launch launch("{" + fixedMachine + R"(,"start-page":"https://a.example/","cdp-tcp-port":9222,
                 "webrtc-no-leak":true,"webrtc-fake-public-ip":"","webgl-profile":"mac-intel-iris",
                 "granular-storage-reset":{"websql":true}})");
  // By a link from elsewhere, as a package has one in /usr/bin: bundle and catalogue are found.
  launch.executable = launch.home.path() / "nimbra";
  std::filesystem::create_symlink(NIMBRA_EXECUTABLE, launch.executable);
  launch.profile.write("Default/databases/db", "x");
  launch.profile.write("Default/Last Tabs", "x");
  launch.profile.write("Default/Bookmarks", "x");
  launch.profile.write(launch.errorFile(), "stale");
  launch.arguments.insert(launch.arguments.begin(), {"--a b", "\xFF\xFE", ""});
  launch.arguments.push_back("--user-data-dir=/second");
  const Outcome outcome = launch.run();
  EXPECT_EQ(0, outcome.status);
  EXPECT_EQ("", outcome.errors);
  const std::vector<std::string> overrides{
      "--webgl-vendor=Google Inc. (Intel Inc.)",
      "--webgl-renderer=ANGLE (Intel Inc., ANGLE Metal Renderer: Intel(R) Iris(TM) Plus Graphics "
      "655, Unspecified Version)",
      "--webgl-max-texture-size=16384", "https://a.example/"};
  ASSERT_TRUE(outcome.engine.contains('A'));
  EXPECT_EQ(commandLine(launch, overrides, "9222"), outcome.engine.at('A'));
  EXPECT_EQ("passthrough", reportMember(launch.resultFile(), "status"));
  EXPECT_EQ("0", reportMember(launch.resultFile(), "elapsed_ms"));
  EXPECT_EQ("0.30.0-mac", reportMember(launch.resultFile(), "launcher_version"));
  EXPECT_EQ("stale", contentOf(launch.errorFile())) << "a launch without a window leaves it alone";
  EXPECT_FALSE(launch.profile.has("Default/databases"));
  EXPECT_FALSE(launch.profile.has("Default/Last Tabs"));
  EXPECT_TRUE(launch.profile.has("Default/Bookmarks"));
}

TEST(PassthroughLaunch, EngineInheritsWhatTheLauncherWasGiven) {
  Launch launch;
  launch.environment.insert(launch.environment.begin(),
                            {"no equals sign", "EMPTY=", "TWICE=1", "TWICE=2", "BYTES=\xFF\n"});
  launch.prepare = [] {
    ::close(STDIN_FILENO);
    ::close_range(3, ~0U, 0);
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
  std::vector<std::string> descriptors;
  for (const std::string& fact : outcome.engine.at('F')) {
    descriptors.push_back(fact.substr(0, fact.find(' ')));
  }
  std::sort(descriptors.begin(), descriptors.end());
  EXPECT_EQ((std::vector<std::string>{"1", "2", "7"}), descriptors);
  EXPECT_EQ(1U << (SIGUSR2 - 1), signalsIn(outcome.engine.at('L')[0], "SigBlk"));
  EXPECT_EQ(ignored, signalsIn(outcome.engine.at('L')[0], "SigIgn"));
  EXPECT_TRUE(outcome.engine.contains('S')) << "the engine leads a session of its own";
}

TEST(PassthroughLaunch, WithoutAProfileTheReportGoesToTheUsersFolder) {
  for (const std::vector<std::string>& arguments :
       {std::vector<std::string>{}, {"--user-data-dir="}, {"--user-data-dir", "/profile"}}) {
    Launch launch;
    launch.arguments = arguments;
    launch.home.write("Library/Application Support/Quillon/command-line.json",
                      R"({"start-page":"per-user"})");
    launch.prepare = [folder = launch.home.path()] {
      if (::chdir(folder.c_str()) != 0) ::_exit(127);
    };
    const Outcome outcome = launch.run();
    ASSERT_TRUE(outcome.engine.contains('A'));
    EXPECT_EQ(1,
              std::count(outcome.engine.at('A').begin(), outcome.engine.at('A').end(), "per-user"));
    EXPECT_EQ("passthrough",
              reportMember(launch.home.path() / "Library/Application Support/Quillon" /
                               launch.resultFile().filename(),
                           "status"));
  }
}

TEST(FatalReport, NamesTheEngineAndLeavesTheResultFile) {
  const Path bundle = Path(NIMBRA_EXECUTABLE).parent_path().parent_path().parent_path();
  const std::vector<std::pair<std::string, std::string>> rows{
      {"/missing/engine", "/missing/engine"},
      {"/tmp", "/tmp"},
      {"", bundle / "Contents/Frameworks/Nimbra Engine.app/Contents/MacOS/Nimbra Engine"}};
  for (const auto& [engine, path] : rows) {
    Launch launch;
    launch.engine = engine;
    const Outcome outcome = launch.run();
    EXPECT_EQ(1, outcome.status);
    EXPECT_EQ("[quillon-launcher] Engine binary not found:\n" + path + "\n", outcome.errors);
    EXPECT_EQ("passthrough", reportMember(launch.resultFile(), "status"));
  }
}

TEST(FatalReport, GoneReaderOfStandardErrorChangesNothing) {
  Launch launch;
  launch.engine = "/missing";
  launch.prepare = [] {
    int ends[2];
    if (::pipe(ends) != 0) ::_exit(127);
    ::dup2(ends[1], STDERR_FILENO);
    ::close(ends[0]);
  };
  EXPECT_EQ(1, launch.run().status);
}

TEST(ChromiumLaunch, RunningBrowserHasOurSwitchesAndAnswersOnLoopback) {
  const Path chromium = "/usr/lib/chromium/chromium";
  if (!std::filesystem::exists(chromium)) GTEST_SKIP() << "Debian's chromium is not installed";
  constexpr const char* port = "19222";
  Launch launch("{" + fixedMachine + R"(,"start-page":"about:blank","cdp-tcp-port":")" + port +
                "\"}");
  launch.engine = chromium;
  launch.arguments.insert(
      launch.arguments.end(),
      {"--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
       "--disable-background-networking", "--disable-component-update", "--disable-sync"});
  launch.prepare = [] { ::dup2(::open("/dev/null", O_WRONLY), STDOUT_FILENO); };
  ::prctl(PR_SET_CHILD_SUBREAPER, 1);
  ASSERT_EQ(0, launch.run().status);
  const std::string own = std::to_string(::getpid());
  const std::string browser = contentOf("/proc/" + own + "/task/" + own + "/children");
  const auto version = platform::runChild(
      {curlExecutable,
       {"--silent", "--fail", "--retry", "30", "--retry-delay", "1", "--retry-connrefused",
        std::string("http://127.0.0.1:") + port + "/json/version"}},
      {std::chrono::seconds(40), 10000, 10000});
  EXPECT_EQ(0, version.exitStatus);
  EXPECT_NE(std::string::npos, version.output.find("webSocketDebuggerUrl")) << version.output;
  const std::string started = contentOf("/proc/" + std::to_string(std::stoi(browser)) + "/cmdline");
  ::kill(-std::stoi(browser), SIGKILL);
  std::string expected;
  for (const std::string& argument : commandLine(launch, {"about:blank"}, port)) {
    expected += argument + '\0';
  }
  EXPECT_EQ(expected, started);
}

}  // namespace
}  // namespace quillon::tests
