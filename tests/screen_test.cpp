#include <dlfcn.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <future>
#include <memory>
#include <optional>
#include <sstream>
#include <thread>

#include "build_identity.h"
#include "launch_fixture.h"
#include "platform/ui/backend.h"
#include "splash/colors.h"

/// Launches with a real window, looked at from outside: to be run by scripts/with-screen and
/// scripts/with-peers. What is expected of pixels holds for any font.
namespace quillon::tests {
namespace {

using namespace std::chrono_literals;
using platform::ui::Color;

/// A variable that with-screen or with-peers sets.
std::string given(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

/// What differs by the toolkit of the module that is loaded: GTK, or AppKit as GNUstep has it.
struct Toolkit {
  const char* executable;
  const char* module;
  /// In the environment of every launch. Messages to released objects come on standard error.
  const char* surroundings;
  /// Of the screen, where the environment can double it.
  int scale;
  std::vector<std::string> windowProperties;
  std::vector<std::string> hugeProperties;
  /// A path that is no text cannot be had with GNUstep, which fails on such an environment.
  const char* oddPath;
  std::vector<std::string> alertProperties;
  std::vector<const char*> alertKeys;
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
                           {"Return", "space", "Escape", "alt+F4"}};
  static const Toolkit appKit{APPKIT_EXECUTABLE,
                              APPKIT_MODULE,
                              "NSZombieEnabled=YES",
                              1,
                              {"_MOTIF_WM_HINTS) = 0x3, 0x24", "X:  410"},
                              {"maximum size: 460 by 8000", "Absolute upper-left Y:  20"},
                              "/nowhere/<i>&",
                              {"\"Critical\""},
                              {"Return", "space", "Escape"}};
  return given("QUILLON_TOOLKIT") == "appkit" ? appKit : gtk;
}

std::string outputOf(const std::string& command) {
  const std::unique_ptr<FILE, int (*)(FILE*)> pipe(::popen((command + " 2>&1").c_str(), "r"),
                                                   ::pclose);
  std::string output;
  for (int byte = 0; (byte = std::fgetc(pipe.get())) != EOF;) output += static_cast<char>(byte);
  return output;
}

/// The number behind a name in what a tool tells; 0 without one.
int numberAfter(const std::string& name, const std::string& text) {
  const auto place = text.find(name);
  return place == std::string::npos ? 0 : std::atoi(text.c_str() + place + name.size());
}

/// What the user sees in the place of a window's content.
class Picture {
 public:
  explicit Picture(const std::string& window) {
    const std::string place = outputOf("xwininfo -id " + window);
    width = numberAfter("Width:", place);
    height = numberAfter("Height:", place);
    std::ostringstream area;
    area << width << 'x' << height << '+' << numberAfter("upper-left X:", place) << '+'
         << numberAfter("upper-left Y:", place);
    bytes_ = outputOf("/usr/bin/import -window root -crop " + area.str() + " -depth 8 rgb:-");
  }

  /// False when the window has gone.
  [[nodiscard]] bool isValid() const {
    return width > 0 && static_cast<int>(bytes_.size()) == 3 * width * height;
  }
  [[nodiscard]] Color at(int x, int y) const {
    const auto place =
        static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x);
    const auto* pixel = reinterpret_cast<const unsigned char*>(&bytes_[3 * place]);
    return {pixel[0], pixel[1], pixel[2]};
  }

  int width = 0;
  int height = 0;

 private:
  std::string bytes_;
};

/// How much of `ink` lies over the background; nothing when the pixel is no mixture of the two.
std::optional<double> coverage(Color pixel, Color ink) {
  constexpr Color paper = colors::background;
  constexpr std::array<std::uint8_t Color::*, 3> components{&Color::red, &Color::green,
                                                            &Color::blue};
  double mixed = 0;
  double all = 0;
  for (const auto component : components) {
    const double range = ink.*component - paper.*component;
    mixed += (pixel.*component - paper.*component) * range;
    all += range * range;
  }
  const double share = mixed / all;
  for (const auto component : components) {
    const double expected = std::lerp(double(paper.*component), double(ink.*component), share);
    if (std::abs(expected - pixel.*component) > 3) return std::nullopt;
  }
  return share;
}

/// In points from the upper left corner.
struct Area {
  int x, y, width, height;
};

/// The columns, in pixels, where an area shows ink of that colour. Nothing but that ink and the
/// background may be there, and some of it must be strong.
struct Ink {
  int first = -1, last = -1;
  double strongest = 0;
  bool isPure = true;
};

Ink inkIn(const Picture& picture, Area area, Color color, int scale = 1) {
  Ink ink;
  for (int x = area.x * scale; x < (area.x + area.width) * scale; ++x) {
    for (int y = area.y * scale; y < (area.y + area.height) * scale; ++y) {
      const auto share = coverage(picture.at(x, y), color);
      ink.isPure = ink.isPure && share.has_value();
      if (share.value_or(0) < 0.05) continue;
      if (ink.first < 0) ink.first = x;
      ink.last = x;
      ink.strongest = std::max(ink.strongest, *share);
    }
  }
  return ink;
}

bool shows(const Picture& picture, Area area, Color color, int scale = 1) {
  const Ink ink = inkIn(picture, area, color, scale);
  return ink.isPure && ink.strongest > 0.5;
}

bool isEmpty(const Picture& picture, Area area) {
  const Ink ink = inkIn(picture, area, colors::brightText);
  return ink.isPure && ink.first < 0;
}

/// The places of a step's row.
constexpr Area inRow(int row, int x, int width) {
  return {x, 72 + 24 * row, width, 20};
}
constexpr Area glyphArea(int row) {
  return inRow(row, 14, 24);
}

/// The identifier of the first window that the window manager knows; empty without any.
std::string firstWindow() {
  const std::string list = outputOf("xprop -root _NET_CLIENT_LIST");
  const auto place = list.find("0x");
  return place == std::string::npos ? ""
                                    : list.substr(place, list.find_first_of(",\n", place) - place);
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
    launch.environment.insert(launch.environment.begin(), environment.begin(), environment.end());
    launch.prepare = [this] { launch.home.write("pid", std::to_string(::getpid())); };
    outcome_ = std::async(std::launch::async, [this] { return launch.run(); });
  }

  /// The identifier of its window, once there is one.
  [[nodiscard]] std::string window() const {
    std::string window;
    while (isRunning() && window.empty()) window = firstWindow();
    EXPECT_NE("", window);
    return window;
  }
  [[nodiscard]] bool isRunning(std::chrono::milliseconds patience = 10ms) const {
    return outcome_.wait_for(patience) != std::future_status::ready;
  }
  /// Keys go to the window with the focus: pressed again as long as it may be another one.
  [[nodiscard]] Outcome endBy(const std::string& keys) {
    for (int i = 0; i < 20 && isRunning(250ms); ++i) outputOf("xdotool key " + keys);
    return end();
  }
  [[nodiscard]] Outcome end() { return outcome_.get(); }
  /// What runs with the launch's own home folder in its environment.
  [[nodiscard]] std::string leftBehind() const {
    return outputOf("grep -als " + launch.home.path().native() + " /proc/[0-9]*/environ");
  }

  Launch launch;

 private:
  std::future<Outcome> outcome_;
};

std::string propertiesOf(const std::string& window) {
  return outputOf("xprop -id " + window +
                  " _NET_WM_NAME _NET_WM_STATE WM_NORMAL_HINTS _MOTIF_WM_HINTS") +
         outputOf("xwininfo -id " + window);
}

void expectAll(const std::string& text, const std::vector<std::string>& parts) {
  for (const std::string& part : parts) {
    EXPECT_NE(std::string::npos, text.find(part)) << part << " is not in\n" << text;
  }
}

std::string overlayWith(const std::string& proxy, const std::string& more = "") {
  return R"({"auto-timezone":true,"proxy-server":")" + proxy + "\"" + more + "}";
}

// Nobody listens on port 1.
constexpr const char* deadProxy = "socks5://127.0.0.1:1";

TEST(Screen, SuccessfulLaunchTicksOffItsStepsInOrderAtDoubleScale) {
  ScreenLaunch running(overlayWith(given("QUILLON_PROXY")), {"GDK_SCALE=2"});
  const std::string window = running.window();
  std::vector<int> ticked;
  while (running.isRunning(1ms)) {
    const Picture picture(window);
    if (!picture.isValid() || picture.at(2, 2) != colors::background) continue;
    const int scale = toolkit().scale;
    ASSERT_EQ(460 * scale, picture.width);
    int done = 0;
    while (done < 4 && shows(picture, glyphArea(done), colors::green, scale)) ++done;
    for (int row = done; row < 4; ++row) {
      EXPECT_TRUE(shows(picture, glyphArea(row), colors::amber, scale)) << row << " of " << done;
    }
    ticked.push_back(done);
  }
  const Outcome outcome = running.end();
  EXPECT_EQ(0, outcome.status);
  EXPECT_FALSE(outcome.engine.empty());
  EXPECT_EQ("", outcome.errors);
  EXPECT_EQ("", running.leftBehind());
  ASSERT_FALSE(ticked.empty());
  EXPECT_TRUE(std::is_sorted(ticked.begin(), ticked.end()));
  EXPECT_GT(ticked.back(), 0);
}

TEST(Screen, BlockedLaunchShowsWhyInAWindowOfExactSizePlaceAndColours) {
  ScreenLaunch running(
      overlayWith(deadProxy,
                  R"(,"b":"<b>&","c":"\u0000\n","chrome-command-line":{"--d":1,"--e":1})"),
      {});
  const std::string window = running.window();
  std::optional<Picture> picture;
  do {
    picture.emplace(window);
  } while (running.isRunning() &&
           !(picture->isValid() && shows(*picture, glyphArea(1), colors::red)));
  // Four active overrides and two raw switches make the window 116 points higher.
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
  const Outcome outcome = running.end();
  EXPECT_EQ(42, outcome.status);
  EXPECT_TRUE(outcome.engine.empty());
  EXPECT_EQ("", outcome.errors);
}

TEST(Screen, ClosingTheHugeWindowDuringDiscoveryEndsTheLaunch) {
  std::string keys;
  for (int i = 0; i < 5000; ++i) keys += ",\"key" + std::to_string(i) + "\":true";
  ScreenLaunch running(overlayWith(given("QUILLON_SILENT_PROXY"), keys), {});
  const std::string window = running.window();
  expectAll(propertiesOf(window), toolkit().hugeProperties);
  const Outcome outcome = running.endBy("alt+F4");
  EXPECT_EQ(0, outcome.status);
  EXPECT_TRUE(outcome.engine.empty());
  EXPECT_FALSE(std::filesystem::exists(running.launch.resultFile()));
}

TEST(Screen, ClosingInAPauseEndsTheLaunchEvenWhenThePauseIsOverByThen) {
  for (const Color glyph : {colors::amber, colors::red}) {
    ScreenLaunch running(overlayWith(deadProxy), {});
    const std::string window = running.window();
    const auto isReached = [&](const Picture& picture) {
      return picture.isValid() && shows(picture, glyphArea(1), glyph);
    };
    while (running.isRunning(1ms) && !isReached(Picture(window))) continue;
    const std::string process = contentOf(running.launch.home.path() / "pid");
    outputOf("kill -STOP " + process);
    outputOf("xdotool key alt+F4; sleep 2.7; kill -CONT " + process);
    const Outcome outcome = running.end();
    EXPECT_EQ(0, outcome.status);
    EXPECT_FALSE(std::filesystem::exists(running.launch.resultFile()));
  }
}

TEST(Screen, AlertComesBehindItsLineOnStandardErrorAndEndsByAnyKeyMeantForIt) {
  for (const char* keys : toolkit().alertKeys) {
    SCOPED_TRACE(keys);
    // The window of a launch that failed with one has gone.
    const bool hasWindow = keys == toolkit().alertKeys.front();
    ScreenLaunch running(hasWindow ? overlayWith(given("QUILLON_PROXY")) : "{}",
                         {"QUILLON_ENGINE_BIN=" + (toolkit().oddPath + std::string(9000, 'x'))});
    const auto errors = running.launch.home.path() / "stderr";
    while (running.isRunning() && contentOf(errors).empty()) continue;
    if (hasWindow) std::this_thread::sleep_for(500ms);
    EXPECT_EQ("", outputOf("xdotool search --onlyvisible --name Prep"));
    const std::string window = running.window();
    EXPECT_TRUE(
        contentOf(errors).starts_with("[quillon-launcher] Engine binary not found:\n/nowhere/<i>"));
    expectAll(propertiesOf(window), {"_NET_WM_STATE_MODAL", "_NET_WM_STATE_SKIP_TASKBAR"});
    expectAll(propertiesOf(window), toolkit().alertProperties);
    const Picture picture(window);
    EXPECT_GT(picture.width, 200);
    EXPECT_LT(picture.width, 1000);
    EXPECT_LT(picture.height, 700);
    const Outcome outcome = running.endBy(keys);
    EXPECT_EQ(1, outcome.status);
    EXPECT_TRUE(outcome.errors.ends_with("x\n")) << outcome.errors;
    EXPECT_EQ("", running.leftBehind());
  }
}

TEST(Screen, DisplayThatNeverAnswersHoldsALaunchUpForFiveSeconds) {
  if (given("QUILLON_TOOLKIT") == "appkit") GTEST_SKIP() << "AppKit asks the session instead.";
  // A socket that stands for a display of either kind.
  const std::string number = "40" + given("DISPLAY").substr(1);
  sockaddr_un address{AF_UNIX, {}};
  const std::string socket = std::strcpy(address.sun_path, ("/tmp/.X11-unix/X" + number).c_str());
  const int mute = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  ASSERT_TRUE(::bind(mute, reinterpret_cast<sockaddr*>(&address), sizeof(address)) == 0 &&
              ::listen(mute, 8) == 0);
  const std::string windowed = overlayWith(deadProxy, R"(,"on-proxy-fail":"fallback")");
  std::deque<Launch> launches;
  std::vector<std::future<Outcome>> outcomes;
  for (int i = 0; i < 4; ++i) {
    Launch& launch = launches.emplace_back(i % 2 == 0 ? windowed : "{}");
    launch.environment.push_back(i < 2 ? "DISPLAY=:" + number : "WAYLAND_DISPLAY=" + socket);
    if (i % 2 == 1) launch.engine = "/nowhere";
    outcomes.push_back(std::async(std::launch::async, [&launch] { return launch.run(); }));
  }
  for (int i = 0; i < 4; ++i) {
    const Outcome outcome = outcomes[std::size_t(i)].get();
    EXPECT_TRUE(outcome.elapsed >= 5s && outcome.elapsed < 9s) << outcome.elapsed.count();
    EXPECT_TRUE(outcome.status == i % 2 && outcome.engine.empty() == (i % 2 == 1)) << i;
  }
  std::filesystem::remove(socket);
}

TEST(Screen, ModuleOfAnotherBuildIsRefused) {
  void* const module = ::dlopen(toolkit().module, RTLD_NOW | RTLD_LOCAL);
  ASSERT_NE(nullptr, module) << ::dlerror();
  auto* const entryPoint = reinterpret_cast<platform::ui::BackendEntryPoint*>(
      ::dlsym(module, platform::ui::backendEntryPoint));
  ASSERT_NE(nullptr, entryPoint);
  EXPECT_EQ(nullptr, entryPoint("another build"));
  EXPECT_NE(nullptr, entryPoint(platform::ui::buildIdentity));
}

}  // namespace
}  // namespace quillon::tests
