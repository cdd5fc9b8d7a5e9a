#include <gtest/gtest.h>

#include "engine/engine_spawn.h"
#include "engine/override_switches.h"
#include "launch_fixture.h"
#include "launcher/fatal_report.h"
#include "launcher/step_texts.h"

namespace quillon {
namespace {

TEST(OverrideSwitches, MemoryClasses) {
  constexpr double gibibyte = 1073741824;
  const std::vector<std::pair<double, const char*>> rows{
      {64, "32"}, {24, "32"}, {23.99, "16"}, {18, "16"}, {12, "16"}, {11.9, "8"}, {8, "8"},
      {6, "8"},   {3, "4"},   {2.9, "2"},    {1.5, "2"}, {1.4, "1"}, {1e-9, "1"}};
  for (const auto& [gibibytes, value] : rows) {
    EXPECT_EQ(value, deviceMemoryValue(static_cast<std::uint64_t>(gibibytes * gibibyte)))
        << gibibytes;
  }
  EXPECT_FALSE(deviceMemoryValue(0));
}

TEST(OverrideSwitches, OnlyWhatIsKnownAndNotGiven) {
  OverlayKeys given;
  given.deviceMemorySet = given.hardwareConcurrencySet = given.speechVoicesSet = true;
  EXPECT_EQ((SwitchList{"chrome://version"}), machineSwitches(given, {16ULL << 30, 8}));
  OverlayKeys open;
  open.startPage = "https://a b/";
  EXPECT_EQ((SwitchList{"--device-memory=16", "--hardware-concurrency=8",
                        "--speech-voices-preset=stock-chrome-mac", "https://a b/"}),
            machineSwitches(open, {16ULL << 30, 8}));
  EXPECT_EQ((SwitchList{"--speech-voices-preset=stock-chrome-mac", "https://a b/"}),
            machineSwitches(open, {0, 0}));
}

TEST(OverrideSwitches, WhatWasNotDerivedGivesNoSwitch) {
  OverlayKeys overlay;
  EXPECT_TRUE(personaSwitches(overlay, {}).empty());
  EXPECT_EQ((SwitchList{"--geo-lat=1"}), personaSwitches(overlay, {.resolvedGeoLat = "1"}));
  overlay.webrtcNoLeak = true;
  EXPECT_EQ((SwitchList{"--force-webrtc-ip-handling-policy=default"}),
            personaSwitches(overlay, {}));
  const ResolvedPersona some{"1.1.1.1", "52", "13", "", "de,en", "Europe/Berlin"};
  EXPECT_EQ("ip=1.1.1.1 tz=Europe/Berlin lat=52 lng=13", overridesText(some, false));
  EXPECT_EQ("none (passthrough)", overridesText({.resolvedAcceptLang = "de"}, false));
}

TEST(EngineSpawn, DebuggingPairOnlyForAUsablePort) {
  const SwitchList pair{"--remote-debugging-port=9222", "--remote-debugging-address=127.0.0.1"};
  for (const char* port : {"9222", "+9222", "09222"}) {
    EXPECT_EQ(pair, debuggingSwitches(port, {"--remote-debugging-address=0.0.0.0",
                                             "--remote-debugging-portable=1"}));
  }
  EXPECT_EQ("--remote-debugging-port=1", debuggingSwitches("1", {}).at(0));
  EXPECT_EQ("--remote-debugging-port=65535", debuggingSwitches("65535", {}).at(0));
  for (const char* port : {"", "0", "65536", "-1", "+-1", "-", "+", "++1", "port", "92 22", " 9222",
                           "9222\n", "9222.0", "0x50", "99999999999999999999"}) {
    EXPECT_TRUE(debuggingSwitches(port, {}).empty()) << port;
  }
  for (const char* given : {"--remote-debugging-port", "--remote-debugging-port=1234"}) {
    EXPECT_TRUE(debuggingSwitches("9222", {"-x", given}).empty()) << given;
  }
}

TEST(EngineSpawn, FailuresHaveTheirCaseAndText) {
  const tests::TemporaryFolder folder;
  const auto messageFor = [&](const char* content, std::filesystem::perms permissions) {
    folder.write("engine", content);
    std::filesystem::permissions(folder.path() / "engine", permissions);
    const auto error = spawnEngine({(folder.path() / "engine").native()});
    return error ? fatalMessage(*error) : "(started)";
  };
  using std::filesystem::perms;
  EXPECT_EQ("Engine spawn failed: posix_spawn failed (errno 8): Exec format error",
            messageFor("no program", perms::owner_all));
  EXPECT_EQ("Engine spawn failed: posix_spawn failed (errno 2): No such file or directory",
            messageFor("#!/missing/interpreter\n", perms::owner_all));
  EXPECT_EQ("Engine binary not found:\n" + (folder.path() / "engine").native(),
            messageFor("x", perms::owner_read | perms::owner_write));
}

}  // namespace
}  // namespace quillon
