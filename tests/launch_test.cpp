#include <fcntl.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>

#include "discovery/egress_discovery.h"
#include "engine/override_switches.h"
#include "launch_table.h"
#include "platform/system/child_run.h"

/// The built executable without a window.
namespace quillon::tests {
namespace {

using Texts = std::vector<std::string>;

/// The signals of a set in the text of a /proc/PID/status; without the two that the C library keeps
/// to itself and changes in every child it spawns.
std::uint64_t signalsIn(const std::string& status, const std::string& name) {
  constexpr std::uint64_t ofTheLibrary = 0x180000000;
  const std::size_t start = status.find("\n" + name + ":\t") + name.size() + 3;
  return std::stoull(status.substr(start), nullptr, 16) & ~ofTheLibrary;
}

Texts sortedFacts(const Outcome& outcome, char letter) {
  if (!outcome.engine.contains(letter)) return {"(no engine)"};
  Texts facts = outcome.engine.at(letter);
  std::sort(facts.begin(), facts.end());
  return facts;
}

TEST(PassthroughLaunch, ComesToWhatItsRowSays) {
  for (const char* name :
       {"passthrough", "engine missing", "engine that is no program", "start page too long"}) {
    TableLaunch launch(rowOf(name), "socks5://h:1");
    // By a link from elsewhere, as a package has one in /usr/bin: bundle and catalogue are found.
    launch.executable = launch.home.path() / "nimbra";
    std::filesystem::create_symlink(NIMBRA_EXECUTABLE, launch.executable);
    launch.expect(launch.run(), true);
  }
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

TEST(PassthroughLaunch, WithoutAProfileTheUsersOwnFolderCounts) {
  struct Row {
    Texts arguments;
    mode_t mask;
    /// Instead of the one that names the folder; the user database names the same.
    Texts home;
  };
  const std::vector<Row> rows{{{}, 0, {}},
                              {{"--user-data-dir="}, 077, {}},
                              {{"--user-data-dir", "/profile"}, 0777, {"HOME="}},
                              {{}, 022, {"OTHER=1"}}};
  for (const auto& [arguments, mask, home] : rows) {
    Launch launch;
    const std::string folder = launch.home.path();
    const std::string ids = std::to_string(::getuid()) + ":" + std::to_string(::getgid());
    launch.home.write("passwd", "user:x:" + ids + "::" + folder + ":/bin/sh\n");
    launch.home.write("group", "user:x:0:\n");
    launch.arguments = arguments;
    if (!home.empty()) {
      launch.environment.front() = home.front();
      launch.environment.insert(
          launch.environment.end(),
          {"LD_PRELOAD=libnss_wrapper.so", "NSS_WRAPPER_PASSWD=" + folder + "/passwd",
           "NSS_WRAPPER_GROUP=" + folder + "/group", "ASAN_OPTIONS=verify_asan_link_order=0"});
    }
    launch.prepare = [&folder, mask = mask] {
      if (::chdir(folder.c_str()) != 0) ::_exit(127);
      ::umask(mask);
    };
    EXPECT_EQ(0, launch.run().status);
    const Path reports = launch.home.path() / "Library/Application Support/Quillon";
    const Path report = reports / launch.resultFile().filename();
    EXPECT_NE(std::string::npos, contentOf(report).find(R"("status":"passthrough",)"));
    using std::filesystem::perms;
    EXPECT_EQ(perms(0600), std::filesystem::status(report).permissions());
    for (const Path& created : {reports, reports.parent_path(), launch.home.path() / "Library"}) {
      EXPECT_EQ(perms::owner_all, std::filesystem::status(created).permissions()) << created;
    }
    launch.home.write(reports / "command-line.json", R"({"start-page":"per-user"})");
    const Texts engine = sortedFacts(launch.run(), 'A');
    EXPECT_EQ(1, std::count(engine.begin(), engine.end(), "per-user"));
  }
}

TEST(FatalReport, NamesTheEngineThatIsNone) {
  const Path bundle = Path(NIMBRA_EXECUTABLE).parent_path().parent_path().parent_path();
  Launch launch;
  launch.prepare = [&] {
    if (::chdir(launch.home.path().c_str()) != 0) ::_exit(127);
  };
  const std::vector<std::pair<std::string, std::string>> rows{
      {"sub/engine", launch.home.path() / "sub/engine"},
      {"", bundle / "Contents/Frameworks/Nimbra Engine.app/Contents/MacOS/Nimbra Engine"}};
  for (const auto& [engine, path] : rows) {
    launch.engine = engine;
    EXPECT_EQ("[quillon-launcher] Engine binary not found:\n" + path + "\n", launch.run().errors);
  }
  launch.prepare = [] {
    int ends[2];
    if (::pipe(ends) != 0) ::_exit(127);
    ::dup2(ends[1], STDERR_FILENO);
    ::close(ends[0]);
  };
  EXPECT_EQ(1, launch.run().status) << "a gone reader of standard error changes nothing";
}

TEST(FatalReport, WebglValueTooLongIsPassedOnAndRefused) {
  LaunchRow row = rowOf("start page too long");
  row.overlay = R"("webgl-profile":"p","start-page":"x")";
  TableLaunch launch(row, "");
  launch.executable = launch.home.path() / "Nimbra";
  std::filesystem::copy_file(NIMBRA_EXECUTABLE, launch.executable);
  launch.home.write("quillon-webgl-profiles.json",
                    R"({"profiles":{"p":{"s":")" + std::string(200000, 'x') + "\"}}}");
  launch.expect(launch.run(), true);
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
  launch.arguments = {"--user-data-dir=" + launch.profile.path().native(),
                      "--headless",
                      "--no-sandbox",
                      "--disable-gpu",
                      "--disable-quic",
                      "--no-first-run",
                      "--disable-background-networking",
                      "--disable-component-update",
                      "--disable-sync"};
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
