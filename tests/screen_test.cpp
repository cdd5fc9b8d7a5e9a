#include <dlfcn.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <deque>
#include <future>
#include <optional>
#include <thread>

#include "build_identity.h"
#include "launch_fixture.h"
#include "platform/ui/backend.h"
#include "screen_picture.h"

/// Launches with a real window, observed from another process. Run by scripts/with-screen and
/// scripts/with-peers.
namespace quillon::tests {
namespace {

using namespace std::chrono_literals;

std::ptrdiff_t threadCount() {
  return std::distance(std::filesystem::directory_iterator("/proc/self/task"), {});
}

/// The number of threads before the observed call. 0 if changes are not observed.
std::ptrdiff_t quietThreadCount = 0;
int changesBesideThreads = 0;

/// Records a change of the environment while another thread may read it. A thread that has replied
/// may still be ending.
void noteChange() {
  if (quietThreadCount == 0) return;
  for (int i = 0; threadCount() > quietThreadCount; ++i) {
    if (i == 100) ++changesBesideThreads;
    if (i == 100) return;
    std::this_thread::sleep_for(1ms);
  }
}

template <class Function>
Function* libraryFunction(const char* name) {
  return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

}  // namespace

/// Replaces the C library's function, also for the module.
extern "C" int setenv(const char* name, const char* value, int replace) noexcept {
  noteChange();
  return libraryFunction<int(const char*, const char*, int)>("setenv")(name, value, replace);
}
extern "C" int unsetenv(const char* name) noexcept {
  if (std::getenv(name) != nullptr) noteChange();
  return libraryFunction<int(const char*)>("unsetenv")(name);
}

namespace {

/// A variable that with-screen or with-peers sets.
std::string given(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

/// The values that depend on the module's toolkit: GTK, or AppKit as implemented by GNUstep.
struct Toolkit {
  const char* executable;
  const char* module;
  /// Added to the environment of every launch. Messages to released objects are reported on
  /// standard error.
  const char* surroundings;
  /// The scale of the screen, if the environment can double it.
  int scale;
  std::vector<std::string> windowProperties;
  std::vector<std::string> hugeProperties;
  /// A path that is not valid text. GNUstep fails on such an environment.
  const char* oddPath;
  std::vector<std::string> alertProperties;
  std::vector<const char*> alertKeys;
  /// With GNUstep the focus may stay with the closed window. The user then has to select the alert.
  bool alertHasFocus;
};

const Toolkit& toolkit() {
  static const Toolkit gtk{NIMBRA_EXECUTABLE,
                           UI_MODULE,
                           "GTK_THEME=Adwaita:dark",
                           2,
                           {"_NET_WM_STATE_ABOVE", "_MOTIF_WM_HINTS) = 0x1, 0x24", "X:  411"},
                           {"maximum size: 460 by 32512"},
                           "/nowhere/<i>&\xff",
                           {"\"Nimbra couldn't launch\"", "_NET_WM_STATE_ABOVE"},
                           {"Return", "space", "Escape", "alt+F4"},
                           true};
  static const Toolkit appKit{APPKIT_EXECUTABLE,
                              APPKIT_MODULE,
                              "NSZombieEnabled=YES",
                              1,
                              {"_MOTIF_WM_HINTS) = 0x3, 0x24", "X:  410"},
                              {"maximum size: 460 by 8000", "Absolute upper-left Y:  20"},
                              "/nowhere/<i>&",
                              {"\"Critical\""},
                              {"Return", "space", "Escape"},
                              false};
  return given("QUILLON_TOOLKIT") == "appkit" ? appKit : gtk;
}

/// The areas of a step's row.
constexpr Area inRow(int row, int x, int width) {
  return {x, 72 + 24 * row, width, 20};
}
constexpr Area glyphArea(int row) {
  return inRow(row, 14, 24);
}

/// The ID of the first window that the window manager lists. Empty if there is none.
std::string firstWindow() {
  const std::string list = outputOf("xprop -root _NET_CLIENT_LIST");
  const auto place = list.find("0x");
  return place == std::string::npos ? ""
                                    : list.substr(place, list.find_first_of(",\n", place) - place);
}

std::string propertiesOf(const std::string& window) {
  return outputOf("xprop -id " + window +
                  " _NET_WM_NAME _NET_WM_STATE WM_NORMAL_HINTS _MOTIF_WM_HINTS") +
         outputOf("xwininfo -id " + window);
}

/// A launch running on the screen.
class ScreenLaunch {
 public:
  /// The entries of `environment` come before all others.
  ScreenLaunch(const std::string& overlay, const std::vector<std::string>& environment)
      : launch(overlay) {
    while (!firstWindow().empty()) std::this_thread::sleep_for(10ms);
    launch.executable = toolkit().executable;
    launch.environment.push_back("DISPLAY=" + given("DISPLAY"));
    launch.environment.emplace_back(toolkit().surroundings);
    launch.environment.push_back("XDG_RUNTIME_DIR=" + launch.home.path().native());
    // The screen has no session bus. The test detects every client that joins the accessibility
    // services anyway.
    launch.environment.push_back("AT_SPI_BUS_ADDRESS=unixexec:path=/bin/touch,argv1=" +
                                 (launch.home.path() / "joined").native());
    launch.environment.insert(launch.environment.begin(), environment.begin(), environment.end());
    launch.prepare = [this] { launch.home.write("pid", std::to_string(::getpid())); };
    outcome_ = std::async(std::launch::async, [this] { return launch.run(); });
  }

  /// The ID of the launch's window, once it has the property.
  [[nodiscard]] std::string window(const std::string& property = "_NET_WM_NAME") const {
    std::string window;
    for (int i = 0; i < 500 && isRunning(); ++i) {
      window = firstWindow();
      if (!window.empty() && propertiesOf(window).find(property) != std::string::npos) break;
    }
    EXPECT_NE("", window);
    return window;
  }
  [[nodiscard]] bool isRunning(std::chrono::milliseconds patience = 10ms) const {
    return outcome_.wait_for(patience) != std::future_status::ready;
  }
  /// Keys go to the window with the focus. They are pressed again while another window may have it.
  [[nodiscard]] Outcome endBy(const std::string& deed) {
    for (int i = 0; i < 20 && isRunning(250ms); ++i) outputOf("xdotool " + deed);
    return end();
  }
  [[nodiscard]] Outcome end() {
    Outcome outcome = outcome_.get();
    EXPECT_FALSE(launch.home.has("joined"));
    return outcome;
  }
  /// The processes that have the launch's home folder in their environment.
  [[nodiscard]] std::string leftBehind() const {
    return outputOf("grep -als " + launch.home.path().native() + " /proc/[0-9]*/environ");
  }

  Launch launch;

 private:
  std::future<Outcome> outcome_;
};

void expectAll(const std::string& text, const std::vector<std::string>& parts) {
  for (const std::string& part : parts) {
    EXPECT_NE(std::string::npos, text.find(part)) << part << " is not in\n" << text;
  }
}

std::string overlayWith(const std::string& proxy, const std::string& more = "") {
  return R"({"auto-timezone":true,"proxy-server":")" + proxy + "\"" + more + "}";
}

// No process listens on port 1.
constexpr const char* deadProxy = "socks5://127.0.0.1:1";
const std::string unblocked = overlayWith(deadProxy, R"(,"on-proxy-fail":"fallback")");

TEST(Screen, SuccessfulLaunchTicksOffItsStepsInOrderAtDoubleScale) {
  ScreenLaunch running(overlayWith(given("QUILLON_SILENT_PROXY")),
                       {"GDK_SCALE=2", "DBUS_SESSION_BUS_ADDRESS=autolaunch:"});
  const std::string window = running.window();
  std::vector<int> ticked;
  while (running.isRunning(1ms)) {
    const Picture picture(window, toolkit().scale);
    if (!picture.isValid() || picture.at(2, 2) != colors::background) continue;
    ASSERT_EQ(460 * picture.scale, picture.width);
    int done = 0;
    while (done < 4 && shows(picture, glyphArea(done), colors::green)) ++done;
    for (int row = done; row < 4; ++row) {
      EXPECT_TRUE(shows(picture, glyphArea(row), colors::amber)) << row << " of " << done;
    }
    ticked.push_back(done);
    // The launch does not continue until its first tick has been seen.
    if (done == 1) outputOf("kill -CONT " + given("QUILLON_SILENT_PROXY_PROCESS"));
  }
  outputOf("kill -STOP " + given("QUILLON_SILENT_PROXY_PROCESS"));
  const Outcome outcome = running.end();
  EXPECT_EQ(0, outcome.status);
  EXPECT_FALSE(outcome.engine.empty());
  EXPECT_EQ("", outcome.errors);
  EXPECT_EQ("", running.leftBehind());
  EXPECT_TRUE(std::is_sorted(ticked.begin(), ticked.end()));
}

TEST(Screen, BlockedLaunchShowsWhyInAWindowOfExactSizePlaceAndColours) {
  ScreenLaunch running(
      overlayWith(deadProxy,
                  R"(,"b":"<b>&WWWWWWWWWWWWWWWWWWWWWWWWWWWWWWW","a-key-of-28-characters-in-all":1)"
                  R"(,"chrome-command-line":{"--d":1,"--e":"\u0000\n"})"),
      {"DBUS_SESSION_BUS_ADDRESS=unix:path=/gone"});
  const std::string window = running.window();
  std::optional<Picture> picture;
  do {
    picture.emplace(window);
  } while (running.isRunning() &&
           !(picture->isValid() && shows(*picture, glyphArea(1), colors::red)));
  // Four active overrides and two raw switches increase the height by 116 points. A line that is
  // too long does not change the width.
  expectAll(propertiesOf(window),
            {"\"Preparing Nimbra", "_NET_WM_STATE_SKIP_TASKBAR", "minimum size: 460 by 356",
             "maximum size: 460 by 356", "Width: 460", "Height: 356"});
  expectAll(propertiesOf(window), toolkit().windowProperties);
  ASSERT_TRUE(picture->isValid());
  EXPECT_TRUE(shows(*picture, {16, 16, 428, 24}, colors::brightText));
  EXPECT_TRUE(shows(*picture, {16, 42, 428, 20}, colors::dimText));
  EXPECT_TRUE(shows(*picture, glyphArea(0), colors::green));
  EXPECT_TRUE(shows(*picture, inRow(0, 260, 184), colors::dimText));
  EXPECT_TRUE(shows(*picture, inRow(1, 260, 184), colors::red));
  EXPECT_GE(inkIn(*picture, inRow(1, 260, 184), colors::red).last, 438) << "not at the right";
  EXPECT_TRUE(shows(*picture, inRow(1, 40, 220), colors::brightText));
  EXPECT_TRUE(shows(*picture, glyphArea(3), colors::amber));
  EXPECT_TRUE(isEmpty(*picture, inRow(3, 260, 184)));
  const std::vector<Area> margins{{0, 0, 460, 16},   {0, 0, 14, 356},    {445, 0, 15, 356},
                                  {0, 340, 460, 16}, {16, 164, 428, 20}, {16, 278, 428, 8}};
  for (const Area& area : margins) EXPECT_TRUE(isEmpty(*picture, area)) << area.x << ' ' << area.y;
  EXPECT_TRUE(shows(*picture, {16, 184, 428, 18}, colors::dimText));
  EXPECT_TRUE(shows(*picture, {16, 206, 428, 72}, colors::summaryRow));
  EXPECT_NEAR(231, inkIn(*picture, {16, 206, 428, 18}, colors::summaryRow).last, 15)
      << "monospaced";
  const Outcome outcome = running.end();
  EXPECT_EQ(42, outcome.status);
  EXPECT_TRUE(outcome.engine.empty());
  EXPECT_EQ("", outcome.errors);
}

TEST(Screen, ClosingTheHugeWindowDuringDiscoveryEvenByForceEndsTheLaunch) {
  std::string keys;
  for (int i = 0; i < 5000; ++i) keys += ",\"key" + std::to_string(i) + "\":true";
  for (const bool byForce : {false, true}) {
    ScreenLaunch running(overlayWith(given("QUILLON_SILENT_PROXY"), keys), {});
    const std::string window = running.window();
    expectAll(propertiesOf(window), toolkit().hugeProperties);
    const Outcome outcome = running.endBy(byForce ? "windowkill " + window : "key alt+F4");
    EXPECT_EQ(0, outcome.status) << byForce;
    EXPECT_TRUE(outcome.engine.empty());
    EXPECT_EQ("", running.leftBehind());
    EXPECT_FALSE(std::filesystem::exists(running.launch.resultFile()));
  }
}

TEST(Screen, ClosingInAPauseEndsTheLaunchEvenWhenThePauseIsOverByThen) {
  for (const Color glyph : {colors::amber, colors::red}) {
    ScreenLaunch running(overlayWith(deadProxy), {});
    const std::string window = running.window();
    // The first pause is short, so there may be no picture of it.
    const auto isReached = [&](const Picture& picture) {
      return picture.isValid() &&
             (shows(picture, glyphArea(1), glyph) || shows(picture, glyphArea(1), colors::red));
    };
    while (running.isRunning(1ms) && !isReached(Picture(window))) continue;
    const std::string process = contentOf(running.launch.home.path() / "pid");
    outputOf("kill -STOP " + process);
    // The window may not have the focus yet, so the keys are repeated.
    for (int i = 0; i < 5; ++i) outputOf("xdotool key alt+F4; sleep 0.54");
    outputOf("kill -CONT " + process);
    const Outcome outcome = running.end();
    EXPECT_EQ(0, outcome.status);
    EXPECT_FALSE(std::filesystem::exists(running.launch.resultFile()));
  }
}

TEST(Screen, AlertComesBehindItsLineOnStandardErrorAndEndsByAnyKeyMeantForIt) {
  const std::string longText = std::string(99, '\n') + std::string(9000, 'x');
  for (const char* keys : toolkit().alertKeys) {
    SCOPED_TRACE(keys);
    // The window of a failed launch has been closed.
    const bool hasWindow = keys == toolkit().alertKeys.front();
    ScreenLaunch running(hasWindow ? overlayWith(given("QUILLON_PROXY")) : "{}",
                         {"QUILLON_ENGINE_BIN=" + (toolkit().oddPath + longText)});
    const std::string window = running.window("_NET_WM_STATE_MODAL");
    EXPECT_TRUE(contentOf(running.launch.home.path() / "stderr")
                    .starts_with("[quillon-launcher] Engine binary not found:\n/nowhere/<i>"));
    expectAll(propertiesOf(window), {"_NET_WM_STATE_MODAL", "_NET_WM_STATE_SKIP_TASKBAR"});
    expectAll(propertiesOf(window), toolkit().alertProperties);
    const Picture picture(window);
    EXPECT_GT(picture.width, 200);
    EXPECT_LT(picture.width, 1000);
    EXPECT_LT(picture.height, 700);
    const std::string focus = toolkit().alertHasFocus ? "" : "windowactivate " + window;
    const Outcome outcome = running.endBy(focus + " key " + keys);
    EXPECT_EQ(1, outcome.status);
    EXPECT_TRUE(outcome.errors.ends_with("x\n")) << outcome.errors;
    EXPECT_EQ("", running.leftBehind());
  }
}

/// A socket that listens or connects as that display, of either kind.
template <class Join>
int displaySocket(const std::string& path, Join join) {
  sockaddr_un address{AF_UNIX, {}};
  path.copy(address.sun_path, sizeof(address.sun_path) - 1);
  const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  if (join != ::connect) ::unlink(path.c_str());  // A killed test leaves this file.
  EXPECT_EQ(0, join(socket, reinterpret_cast<sockaddr*>(&address), sizeof(address)));
  ::listen(socket, 8);
  return socket;
}

TEST(Screen, DisplayThatNeverAnswersHoldsALaunchUpForFiveSeconds) {
  if (given("QUILLON_TOOLKIT") == "appkit") GTEST_SKIP() << "AppKit asks the session instead.";
  const std::string number = "40" + given("DISPLAY").substr(1);
  const std::string socket = "/tmp/.X11-unix/X" + number;
  displaySocket(socket, ::bind);
  std::deque<Launch> launches;
  std::vector<std::future<Outcome>> outcomes;
  // The last one is an unresponsive session bus.
  for (const std::string& display :
       {"DISPLAY=:" + number, "DISPLAY=:" + number, "WAYLAND_DISPLAY=" + socket,
        "WAYLAND_DISPLAY=" + socket, "DISPLAY=" + given("DISPLAY")}) {
    const auto i = launches.size();
    Launch& launch = launches.emplace_back(i % 2 == 0 ? unblocked : "{}");
    std::filesystem::create_hard_link(socket, launch.home.path() / "bus");
    launch.environment.insert(launch.environment.end(),
                              {display, "XDG_RUNTIME_DIR=" + launch.home.path().native()});
    if (i % 2 == 1) launch.engine = "/nowhere";
    outcomes.push_back(std::async(std::launch::async, [&launch] { return launch.run(); }));
  }
  for (std::size_t i = 0; i < outcomes.size(); ++i) {
    const Outcome outcome = outcomes[i].get();
    EXPECT_TRUE(outcome.elapsed >= 5s && outcome.elapsed < 9s) << outcome.elapsed.count();
    EXPECT_TRUE(outcome.status == int(i % 2) && outcome.engine.empty() == (i % 2 == 1)) << i;
    if (i < 4) continue;
    // Except for the signals that the C library changes. The toolkit's changes are undone.
    const std::string engine = outcome.engine.at('L')[0];
    const std::string own = contentOf("/proc/self/status");
    for (const char* name : {"SigBlk:", "SigIgn:"}) {
      EXPECT_EQ(own.substr(own.find(name) + 17, 7), engine.substr(engine.find(name) + 17, 7));
    }
    EXPECT_EQ(1, std::ranges::count(outcome.engine.at('F'), "2")) << "standard error";
  }
  std::filesystem::remove(socket);
}

/// Null if the build is not the module's own.
const platform::ui::Backend* loadModule(const char* build) {
  void* const module = ::dlopen(toolkit().module, RTLD_NOW | RTLD_LOCAL);
  EXPECT_NE(nullptr, module) << ::dlerror();
  auto* const entryPoint = reinterpret_cast<platform::ui::BackendEntryPoint*>(
      ::dlsym(module, platform::ui::backendEntryPoint));
  return entryPoint(build);
}

/// Ends the process with 0 if the environment changed only while no other thread could read it.
[[noreturn]] void connectWithSilentBus(const std::string& bus) {
  ::setenv("DBUS_SESSION_BUS_ADDRESS", ("unix:path=" + bus).c_str(), 1);
  ::setenv("DESKTOP_STARTUP_ID", "quillon", 1);
  const platform::ui::Backend* const backend = loadModule(platform::ui::buildIdentity);
  quietThreadCount = threadCount();
  const bool isConnected = backend->connect({});
  const bool isLeftBehind = threadCount() > quietThreadCount;
  std::_Exit(isConnected && isLeftBehind ? changesBesideThreads : 100);
}

TEST(Screen, EnvironmentStaysAsItIsOnceAThreadIsLeftBehind) {
  if (given("QUILLON_TOOLKIT") == "appkit") GTEST_SKIP() << "AppKit asks the session instead.";
  const TemporaryFolder folder;
  const std::string bus = folder.path() / "bus";
  displaySocket(bus, ::bind);
  EXPECT_EXIT(connectWithSilentBus(bus), testing::ExitedWithCode(0), "");
}

/// Sends the greeting of a display to the first two clients, the module and the toolkit, and then
/// closes the connections.
void greetTwo(int dying, const std::string& number) {
  for (int i = 0; i < 2; ++i) {
    const int client = ::accept(dying, nullptr, nullptr);
    const int display = displaySocket("/tmp/.X11-unix/X" + number, ::connect);
    std::array<char, 65536> bytes{};
    ssize_t got = ::read(client, bytes.data(), bytes.size());
    ::send(display, bytes.data(), std::size_t(got), 0);
    ::shutdown(display, SHUT_WR);
    while ((got = ::read(display, bytes.data(), bytes.size())) > 0) {
      ::send(client, bytes.data(), std::size_t(got), MSG_NOSIGNAL);
    }
    ::close(client);
  }
}

/// Ends the process with 7 if the second loss calls the application's handler.
[[noreturn]] void loseDisplayTwice(int dying, const std::string& number) {
  ::setenv("DISPLAY", (":41" + number).c_str(), 1);
  std::thread(greetTwo, dying, number).detach();
  const auto leave = [] { std::_Exit(7); };
  if (loadModule(platform::ui::buildIdentity)->connect({nullptr, leave})) std::_Exit(1);
  using Handler = int (*)(void*);
  auto* const exchange = reinterpret_cast<Handler (*)(Handler)>(
      ::dlsym(::dlopen("libX11.so.6", RTLD_NOW), "XSetIOErrorHandler"));
  exchange(nullptr)(nullptr);
  std::_Exit(2);
}

TEST(Screen, DisplayThatDiesWhileTheToolkitConnectsIsNone) {
  if (given("QUILLON_TOOLKIT") == "appkit") GTEST_SKIP() << "AppKit asks the session instead.";
  const std::string number = given("DISPLAY").substr(1);
  const std::string socket = "/tmp/.X11-unix/X41" + number;
  const int dying = displaySocket(socket, ::bind);
  Launch launch(unblocked);
  launch.environment.push_back("DISPLAY=:41" + number);
  auto running = std::async(std::launch::async, [&launch] { return launch.run(); });
  greetTwo(dying, number);
  const Outcome outcome = running.get();
  EXPECT_TRUE(outcome.status == 0 && !outcome.engine.empty() && outcome.errors.empty());
  EXPECT_EXIT(loseDisplayTwice(dying, number), testing::ExitedWithCode(7), "");
  std::filesystem::remove(socket);
}

TEST(Screen, ModuleOfAnotherBuildIsRefused) {
  EXPECT_EQ(nullptr, loadModule("another build"));
  EXPECT_NE(nullptr, loadModule(platform::ui::buildIdentity));
}

}  // namespace
}  // namespace quillon::tests
