#include <gtest/gtest.h>

#include "engine/engine_arguments.h"
#include "engine/engine_spawn.h"
#include "launch_fixture.h"
#include "launcher/fatal_report.h"

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

TEST(OverrideSwitches, WhatIsUnknownGivesNone) {
  EXPECT_EQ(SwitchList{"--speech-voices-preset=stock-chrome-mac"}, machineSwitches({}, {0, 0}));
  // A NUL ends an argument. An argument that starts with a NUL is omitted.
  EXPECT_EQ((SwitchList{{"--geo-lat=1\0x", 13}}),
            personaSwitches({}, {.resolvedGeoLat = {"1\0x", 3}, .resolvedTZ = {"\0x", 2}}));
}

TEST(EngineArguments, DebuggingPairOnlyForAUsablePort) {
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

TEST(EngineSpawn, FailuresHaveTheirText) {
  const tests::TemporaryFolder folder;
  const std::string engine = folder.path() / "engine";
  folder.write("engine", "#!/missing/interpreter\n");
  EXPECT_EQ("Engine binary not found:\n" + engine, fatalMessage(spawnEngine({engine}).value()));
  std::filesystem::permissions(engine, std::filesystem::perms::owner_all);
  EXPECT_EQ("Engine spawn failed: posix_spawn failed (errno 2): No such file or directory",
            fatalMessage(spawnEngine({engine}).value()));
}

TEST(EngineArguments, EndAtANul) {
  EXPECT_EQ((std::vector<std::string>{"ab"}),
            argumentVector({{ArgumentOrigin::catalogue, {"ab\0cd", 5}}}));
}

}  // namespace
}  // namespace quillon
