#include <gtest/gtest.h>

#include <sstream>

#include "launch_fixture.h"
#include "overlay/overlay_keys.h"
#include "overlay/overlay_location.h"
#include "overlay/webgl_catalogue.h"

namespace quillon {
namespace {

using tests::TemporaryFolder;
using Texts = std::vector<std::string>;

platform::JsonObject object(const std::string& text) {
  auto parsed = platform::parseJsonObject(text);
  EXPECT_TRUE(parsed) << text;
  return std::move(parsed).value_or(platform::JsonObject());
}

TEST(OverlayFile, ProfileFolderIsTheFirstExactSwitch) {
  EXPECT_EQ("/a", userDataDirFromArgs({"-x", "--user-data-dir=/a", "--user-data-dir=/b"}));
  EXPECT_EQ("", userDataDirFromArgs({"--user-data-dir="}));
  EXPECT_EQ(" ~/\"q\" ", userDataDirFromArgs({"--user-data-dir= ~/\"q\" "}));
  EXPECT_FALSE(userDataDirFromArgs({"--user-data-dir", "/a", "--User-Data-Dir=/a"}));
}

TEST(OverlayFile, ExactlyOneFileIsChosen) {
  const TemporaryFolder profile;
  const std::string folder = profile.path().native();
  const platform::Path ofUser = readOverlayFile(folder).overlayURL;
  EXPECT_EQ("Quillon", ofUser.folder().name());
  EXPECT_EQ(ofUser, readOverlayFile(std::nullopt).overlayURL);
  profile.write("command-line.json/inside", "a folder of that name");
  EXPECT_EQ(profile.path() / "command-line.json", readOverlayFile(folder).overlayURL);
  EXPECT_FALSE(readOverlayFile(folder).object);
}

/// Every key with a value of every JSON type, and the result of each way of reading it.
TEST(OverlayKeys, EveryKeyTakesEveryKindByItsRule) {
  struct Row {
    const char* json;
    bool isOn;
    const char* text;
    const char* port;
  };
  const std::vector<Row> rows{{"null", false, "", ""},
                              {"true", true, "", "1"},
                              {"false", false, "", "0"},
                              {"0", false, "", "0"},
                              {"2", true, "", "2"},
                              {"0.5", true, "", "0"},
                              {"9222.9", true, "", "9222"},
                              {R"("true")", true, "true", "true"},
                              {R"("1")", true, "1", "1"},
                              {R"("TRUE")", false, "TRUE", "TRUE"},
                              {R"(" true")", false, " true", "true"},
                              {R"(" \t9222\u00a0")", false, " \t9222\u00A0", "9222"},
                              {R"("9222\n")", false, "9222\n", "9222\n"},
                              {R"("")", false, "", ""},
                              {"[1]", false, "", ""},
                              {R"({"a":1})", false, "", ""}};
  for (const Row& row : rows) {
    std::string json = "{\"unknown\":1";
    std::istringstream keys(
        "proxy-server webrtc-no-leak webrtc-fake-public-ip on-proxy-fail auto-geo auto-lang "
        "auto-timezone geo-lat geo-lng lang accept-language timezone-override close-previous-tabs "
        "start-page granular-storage-reset device-memory hardware-concurrency speech-voices "
        "webgl-profile cdp-tcp-port");
    for (std::string key; keys >> key;) json += ",\"" + key + "\":" + row.json;
    OverlayKeys expected;
    expected.webrtcNoLeak = expected.autoGeo = expected.autoLang = expected.autoTimezone = row.isOn;
    expected.webrtcFakePublicIpSet = expected.geoLatSet = expected.geoLngSet = true;
    expected.langSet = expected.acceptLanguageSet = expected.timezoneOverrideSet = true;
    expected.deviceMemorySet = expected.hardwareConcurrencySet = expected.speechVoicesSet = true;
    expected.proxyServer = expected.startPage = expected.webglProfile = row.text;
    expected.closePreviousTabs = row.isOn || !expected.startPage.empty();
    if (row.json[0] == '{') expected.granularStorageReset = {{"a", true}};
    expected.cdpTcpPort = row.port;
    EXPECT_EQ(expected, overlayKeysFrom(object(json + "}"))) << row.json;
  }
  EXPECT_EQ(OverlayKeys(), overlayKeysFrom(object(R"({"speech-voices-preset":1,"Lang":"x"})")));
}

TEST(OverlayKeys, RulesOfSingleKeys) {
  const auto keys = [](const std::string& json) { return overlayKeysFrom(object(json)); };
  EXPECT_EQ("fallback", keys(R"({"on-proxy-fail":"fallback"})").onProxyFail);
  for (const char* policy : {"Fallback", "fallback ", "block", ""}) {
    EXPECT_EQ("block", keys(R"({"on-proxy-fail":")" + std::string(policy) + "\"}").onProxyFail);
  }
  const std::string nested = R"("chrome-command-line":{"--proxy-server":"socks5://n"}})";
  EXPECT_EQ("socks5://n", keys(R"({"proxy-server":"",)" + nested).proxyServer);
  EXPECT_EQ("socks5://n", keys(R"({"proxy-server":7,)" + nested).proxyServer);
  EXPECT_EQ("socks5://t", keys(R"({"proxy-server":"socks5://t",)" + nested).proxyServer);
  const std::map<std::string, bool> reset{{"a", false}, {"b", true}, {"c", false}, {"all", true}};
  EXPECT_EQ(reset, keys(R"({"granular-storage-reset":{"a":false,"b":2,"c":0,"cookies":"true",
                            "d":null,"e":[],"f":{},"all":true}})")
                       .granularStorageReset);
}

TEST(WebglCatalogue, OneBadEntryCostsOnlyItself) {
  const auto catalogue = object(R"({"other":1,"profiles":{"flat":7,"p":{
      "_comment":"x","s":"text","empty":"","null":null,"n":2,"f":0.5,"b":true,"off":false,
"a":["x", true, false, null],"o":{"k": [1]},"--dashed":"v","n":3}}})");
  const Texts expected{
      "--s=text",         "--f=0.5",      "--b=1", "--off=0", R"(--a=["x",true,false,null])",
      R"(--o={"k":[1]})", "----dashed=v", "--n=3"};
  EXPECT_EQ(expected, switchesOfWebglProfile(catalogue, "p"));
  for (const char* name : {"P", "p ", "flat", "missing"}) {
    EXPECT_TRUE(switchesOfWebglProfile(catalogue, name).empty()) << name;
  }
  EXPECT_TRUE(switchesOfWebglProfile(object(R"({"profiles":[]})"), "p").empty());
}

TEST(WebglCatalogue, ResourceComesBeforeTheProgramsFolder) {
  const TemporaryFolder folder;
  const std::string name = "quillon-webgl-profiles.json";
  const CataloguePlaces places{{folder.path(), folder.path() / "Resources"},
                               (folder.path() / "bin/Nimbra").native()};
  EXPECT_TRUE(webglProfileSwitches("p", places).empty());
  folder.write("bin/" + name, R"({"profiles":{"p":{"place":"program"}}})");
  EXPECT_EQ((Texts{"--place=program"}), webglProfileSwitches("p", places));
  folder.write("Resources/" + name, "malformed");
  EXPECT_TRUE(webglProfileSwitches("p", places).empty()) << "the first place that has one counts";
  for (const platform::Path own : {"/a/MacOS", "/a/Contents/bin"}) {
    EXPECT_EQ(own, platform::bundleOf(own / "x").resources) << "no bundle";
  }
}

}  // namespace
}  // namespace quillon
