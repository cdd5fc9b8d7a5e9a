#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <map>

#include "launch_fixture.h"

/// Launches with a window (headless), through real curl, SOCKS5 proxies and TLS endpoints: to be
/// run by scripts/with-peers.
namespace quillon::tests {
namespace {

std::string environmentValue(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

const std::string openProxy = environmentValue("QUILLON_PROXY");
const std::string passwordProxy = environmentValue("QUILLON_AUTH_PROXY");

/// What the endpoints answer from now on; without a reply of the test's what they really answer.
void answer(const std::string& geoip, const std::string& myip) {
  const Path folder = environmentValue("QUILLON_REPLIES");
  for (const auto& [name, reply] : {std::pair("geoip", geoip), std::pair("myip", myip)}) {
    std::filesystem::remove(folder / name);
    if (!reply.empty()) std::ofstream(folder / name, std::ios::binary) << reply;
  }
}

std::string overlay(const std::string& proxy, const std::string& more) {
  return R"({"device-memory":1,"hardware-concurrency":1,"speech-voices":1,"proxy-server":")" +
         proxy + "\"," + more + "}";
}

/// The engine's arguments between the launcher's own and the fixed ones.
std::vector<std::string> overrideSwitches(const Outcome& outcome) {
  if (!outcome.engine.contains('A')) return {"(no engine)"};
  const auto& all = outcome.engine.at('A');
  const auto fixed = std::find(all.begin(), all.end(), "--hide-crash-restore-bubble");
  return {all.begin() + 2, fixed};
}

const std::string everything =
    R"("auto-geo":true,"auto-lang":true,"auto-timezone":true,"webrtc-no-leak":true)";

/// What follows from an exit.
struct Place {
  std::string country, zone, latitude, longitude, language, accepted;
};
const std::map<std::string, Place> places{
    {"127.0.0.1", {"DE", "Europe/Berlin", "52.52", "13.405", "de-DE", "de-DE,de;q=0.9,en;q=0.8"}},
    {"127.0.0.2",
     {"JP", "Asia/Tokyo", "35.6895", "139.69171", "ja-JP", "ja-JP,ja;q=0.9,en;q=0.8"}}};

TEST(PeerLaunch, DerivesThePersonaThroughEitherProxy) {
  answer("", "");
  for (const auto& [proxy, exit] :
       {std::pair(openProxy, "QUILLON_EXIT"), {passwordProxy, "QUILLON_AUTH_EXIT"}}) {
    const std::string ip = environmentValue(exit);
    const Place& place = places.at(ip);
    const Launch launch(overlay(proxy, everything + R"(,"granular-storage-reset":{"all":true})"));
    launch.profile.write(launch.errorFile(), "stale");
    launch.profile.write("Default/Network/Cookies", "x");
    const Outcome outcome = launch.run();
    EXPECT_EQ(0, outcome.status);
    EXPECT_GE(outcome.elapsed, std::chrono::milliseconds(500)) << "the pauses are kept";
    EXPECT_LT(outcome.elapsed, std::chrono::milliseconds(2000));
    EXPECT_EQ((std::vector<std::string>{
                  "--webrtc-fake-public-ip=" + ip, "--force-webrtc-ip-handling-policy=default",
                  "--timezone-override=" + place.zone, "--lang=" + place.language,
                  "--accept-language=" + place.accepted, "--geo-lat=" + place.latitude,
                  "--geo-lng=" + place.longitude, "--geo-accuracy=100", "chrome://version"}),
              overrideSwitches(outcome));
    EXPECT_EQ("(none)", reportMember(launch.errorFile(), "step")) << "the stale one is removed";
    EXPECT_FALSE(launch.profile.has("Default/Network/Cookies"));
    std::string told;
    for (const char* member : {"status", "ip", "timezone", "country_code", "lat", "lng", "lang",
                               "accept_lang", "provider"}) {
      told += reportMember(launch.resultFile(), member) + ' ';
    }
    EXPECT_EQ("ok " + ip + ' ' + place.zone + ' ' + place.country + ' ' + place.latitude + ' ' +
                  place.longitude + ' ' + place.language + ' ' + place.accepted + " quillon ",
              told);
  }
  const std::string log = contentOf(environmentValue("QUILLON_PROXY_LOG"));
  EXPECT_NE(std::string::npos, log.find("connected to localhost:")) << log;
  EXPECT_EQ(std::string::npos, log.find("connected to 127.")) << "it is for the proxy to look up";
}

TEST(PeerLaunch, FallbackTellsTheAddressAlone) {
  answer("<html>no</html> this page is longer than any address is", "");
  const Launch launch(overlay(openProxy, R"("webrtc-no-leak":true)"));
  EXPECT_EQ(
      (std::vector<std::string>{"--webrtc-fake-public-ip=" + environmentValue("QUILLON_EXIT"),
                                "--force-webrtc-ip-handling-policy=default", "chrome://version"}),
      overrideSwitches(launch.run()));
  EXPECT_EQ("myip.quillon.example", reportMember(launch.resultFile(), "provider"));
  EXPECT_EQ("(none)", reportMember(launch.errorFile(), "step"));
}

TEST(PeerLaunch, FailuresBlockTheLaunchAndSayWhy) {
  struct Row {
    std::string proxy;
    std::string asked;
    std::string geoip;
    std::string errorCode;
    std::string curlExitCode;
  };
  const std::string address = R"("webrtc-no-leak":true)";
  const std::string zone = R"("auto-timezone":true)";
  const std::string closedPort = "socks5://127.0.0.1:1";
  std::string wrongPassword = passwordProxy;
  wrongPassword.replace(wrongPassword.find("s3cret"), 6, "wrong");
  const std::vector<Row> rows{
      {closedPort, zone, "", "PROXY_UNREACHABLE", "7"},
      {closedPort, address, "", "PROXY_UNREACHABLE", "7"},
      {wrongPassword, zone, "", "INTERNAL", "97"},
      {"http://127.0.0.1:1", zone, "", "INTERNAL", "(none)"},
      {openProxy, zone, "{", "DISCOVERY_HTTP_ERROR", "0"},
      {openProxy, zone, "\xFF\xFE", "DISCOVERY_HTTP_ERROR", "0"},
      {openProxy, zone, std::string(64 << 20, 'A'), "DISCOVERY_HTTP_ERROR", "0"}};
  for (const Row& row : rows) {
    answer(row.geoip, "");
    const Launch launch(overlay(row.proxy, row.asked + R"(,"start-page":"x")"));
    launch.profile.write("Default/Last Tabs", "x");
    const Outcome outcome = launch.run();
    EXPECT_EQ(42, outcome.status) << row.proxy;
    EXPECT_TRUE(outcome.engine.empty());
    EXPECT_GE(outcome.elapsed, std::chrono::milliseconds(2820)) << "the user can read why";
    EXPECT_EQ(row.errorCode, reportMember(launch.errorFile(), "error_code"));
    EXPECT_EQ(row.curlExitCode, reportMember(launch.errorFile(), "curl_exit_code"));
    EXPECT_EQ(row.proxy, reportMember(launch.errorFile(), "proxy"));
    EXPECT_EQ(row.asked == address ? "https://myip.quillon.example/myip"
                                   : "https://geoip.quillon.example/geoip?format=json",
              reportMember(launch.errorFile(), "discovery_url"));
    EXPECT_EQ("PROXY_BLOCKED", reportMember(launch.resultFile(), "error_code"));
    EXPECT_TRUE(launch.profile.has("Default/Last Tabs")) << "a blocked launch cleans nothing";
  }
}

TEST(PeerLaunch, FallbackPolicyStartsTheEngineAfterATimeOut) {
  const std::string silent = environmentValue("QUILLON_SILENT_PROXY");
  const Launch launch(overlay(silent, everything + R"(,"on-proxy-fail":"fallback")"));
  const Outcome outcome = launch.run();
  EXPECT_EQ(
      (std::vector<std::string>{"--force-webrtc-ip-handling-policy=default", "chrome://version"}),
      overrideSwitches(outcome));
  EXPECT_EQ("ok", reportMember(launch.resultFile(), "status"));
  EXPECT_EQ("PROXY_TIMEOUT", reportMember(launch.errorFile(), "error_code"));
  EXPECT_EQ("28", reportMember(launch.errorFile(), "curl_exit_code"));
  EXPECT_LT(outcome.elapsed, std::chrono::seconds(14));
}

}  // namespace
}  // namespace quillon::tests
