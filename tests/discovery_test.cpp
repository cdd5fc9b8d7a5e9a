#include <gtest/gtest.h>

#include "discovery/country_languages.h"
#include "discovery/egress_discovery.h"
#include "discovery/endpoints.h"
#include "discovery/persona.h"
#include "launch_fixture.h"
#include "platform/process/spawn.h"

namespace quillon {
namespace {

using Texts = std::vector<std::string>;

const DiscoveryRequest direct{"", "https://e/x"};
const DiscoveryRequest proxied{"socks5://u:p@h:1", "https://e/x"};

DiscoverResult replied(const std::string& reply) {
  return interpretCurlRun({0, 0, reply, reply.size()}, 5, direct);
}

TEST(EgressDiscovery, ArgumentsNameTheProxyThatResolves) {
  EXPECT_EQ((Texts{"--max-time", "10", "-sS", "https://e/x"}), curlArguments(direct));
  EXPECT_EQ((Texts{"--max-time", "10", "-sS", "-x", "socks5h://u:p@h:1", "https://e/x"}),
            curlArguments(proxied));
  for (const char* rest :
       {"h:1 ", "u:p%20%40%7f%ff%%0g%1@h:1", "u:p@h:1/%0a", "h%0a:1", "[::1%250a]"}) {
    EXPECT_EQ(std::string("socks5h://") + rest,
              curlArguments({std::string("socks5://") + rest, "u"})->at(4));
  }
  for (const char* proxy : {"socks5h://h:1", "SOCKS5://h:1", " socks5://h:1", "http://h", "x",
                            "socks5://%00@h", "socks5://u:p%1F@h:1", "socks5:///u%%0a:p@h:1"}) {
    EXPECT_FALSE(curlArguments({proxy, "u"})) << proxy;
  }
}

TEST(EgressDiscovery, CurlThatCannotBeStartedIsAResult) {
  const tests::TemporaryFolder folder;
  folder.write("curl", "no program");
  std::filesystem::permissions(folder.path() / "curl", std::filesystem::perms::owner_all);
  const DiscoverResult result = discoverEgressWith(folder.path() / "curl", "", "u");
  EXPECT_EQ((DiscoverResult{"", -1, 0, "INTERNAL", "Process.run(curl) failed: Exec format error",
                            "", "", "", ""}),
            result);
}

/// Runs a shell script instead of curl. The script finds the endpoint in $url.
DiscoverResult runScript(const std::string& script, const std::string& proxy, const char* url) {
  const tests::TemporaryFolder folder;
  folder.write("curl", "#!/bin/sh\nfor url; do :; done\n" + script);
  std::filesystem::permissions(folder.path() / "curl", std::filesystem::perms::owner_all);
  return discoverEgressWith(folder.path() / "curl", proxy, url);
}

TEST(EgressDiscovery, NothingInTheEnvironmentLeadsAroundTheProxy) {
  const std::vector<std::string> entries{"no_proxy=a", "NO_PROXY=b", "no_proxy=c", "no_proxy_=d"};
  const platform::Environment inherited(platform::pointersTo(entries).data());
  const auto throughProxy = curlEnvironment(proxied, inherited);
  EXPECT_FALSE(throughProxy.value("no_proxy") || throughProxy.value("NO_PROXY"));
  EXPECT_EQ("d", throughProxy.value("no_proxy_"));
  EXPECT_EQ("a", curlEnvironment(direct, inherited).value("no_proxy"));
  const auto own = platform::startEnvironment().value("no_proxy");  // ctest sets one
  EXPECT_EQ("kept: " + std::string(own.value_or("")),
            runScript("echo kept: $no_proxy", "", "u").ip);
  EXPECT_EQ("kept:", runScript("echo kept: $no_proxy", "socks5://h:1", "u").ip);
}

TEST(EgressDiscovery, LongRepliesAreReadToTheirEnd) {
  const char* script = "sleep 0.2; echo 203.0.113.7; head -c $url /dev/zero | tr '\\0' x";
  const DiscoverResult longest = runScript(script, "", "16777204");
  EXPECT_EQ("203.0.113.7", longest.ip);
  EXPECT_GE(longest.elapsedMs, 200);
  EXPECT_LT(longest.elapsedMs, 10000);
  EXPECT_EQ("curl exit 0 but no usable IP in response — got 16777217 bytes, head: \"203.0.113.7\n" +
                std::string(68, 'x') + "\"",
            runScript(script, "", "16777205").message);
}

TEST(EgressDiscovery, OtherEndsOfCurl) {
  for (const int status : {5, 6, 29, 128 + 9}) {
    EXPECT_EQ("INTERNAL", interpretCurlRun({0, status, "", 0}, 0, direct).errorCode);
  }
  EXPECT_EQ("curl exit 6 against https://e/x direct after 0 ms",
            interpretCurlRun({0, 6, "", 0}, 0, direct).message);
  EXPECT_EQ("1.50", replied(R"({"longitude":"1.50"})").longitude);
}

TEST(EgressDiscovery, AddressesOfRepliesOfAllSorts) {
  const std::string longest(45, 'x');
  struct Row {
    std::string reply;
    std::string ip;
    bool isUsable;
  };
  const std::vector<Row> rows{
      {" \r\n\u2028{\"ip\":\" 1.1.1.1 \"}", "", false},
      {" \r\n{\"ip\":\" 1.1.1.1 \"}", " 1.1.1.1 ", true},
      {"{not json", "", false},
      {"{", "", false},
      {"[1,2]", "[1,2]", false},
      {"", "", false},
      {" \n\t", "", false},
      {"\r\n \t203.0.113.7\u00A0 \nmore\n", "203.0.113.7", true},
      {"1.1.1.1", "1.1.1.1", true},
      {"{\"a\":{\"ip\":\"9.9.9.9\",\"b\":\"" + std::string(100000, 'x') + "\"},\"ip\":\"1.1.1.1\"}",
       "1.1.1.1", true},
      {"1.1.1", "1.1.1", false},
      {R"({"ip":"\u0000.1.1.1.1"})", std::string("\0.1.1.1.1", 9), false},
      {longest, longest, true},
      {longest + "x", longest + "x", false},
      {"<!DOCTYPE html>\n<html>", "<!DOCTYPE html>", true}};
  for (const auto& [reply, ip, isUsable] : rows) {
    EXPECT_EQ(ip, replied(reply).ip) << reply;
    EXPECT_EQ(isUsable ? "" : "DISCOVERY_HTTP_ERROR", replied(reply).errorCode) << reply;
  }
}

TEST(EgressDiscovery, MessagesQuoteTheHeadOfAReply) {
  const std::string noAddress = "curl exit 0 but no usable IP in response — got ";
  EXPECT_EQ(noAddress + "9 bytes, head: \"{not json\"", replied("{not json").message);
  EXPECT_EQ(noAddress + "0 bytes, head: \"\"", replied("").message);
  EXPECT_EQ("curl exit 0 but response not UTF-8",
            replied("1.1.1.1\n" + std::string(100000, 'x') + "\xFF").message);
  // Truncated at the limit, inside a character.
  EXPECT_EQ(noAddress + "64000000 bytes, head: \"1.1.1.1\n\uFFFD\"",
            interpretCurlRun({0, 0, "1.1.1.1\n\xC3", 64000000}, 5, direct).message);
}

TEST(Endpoints, ReservedHostsAndLabels) {
  const auto names = {"example",     "A.Invalid",   "test",
                      "example.com", "example.net", "a.example.org"};
  for (const char* host : names) EXPECT_TRUE(isReservedHost(host)) << host;
  for (const char* host : {"example.de", "noexample", "test.a", ""}) {
    EXPECT_FALSE(isReservedHost(host)) << host;
  }
  EXPECT_EQ("b", providerLabel("b.c"));
  EXPECT_EQ("c", providerLabel("c"));
}

TEST(CountryLanguages, TableIsWholeAndLookupIgnoresCase) {
  for (const CountryLang& row : countryLangTable) {
    const std::string primary(row.primary);
    EXPECT_EQ(row.cc, primary.substr(3));
    EXPECT_TRUE(row.accept.starts_with(primary + "," + primary.substr(0, 2) + ";q=0.9")) << row.cc;
    EXPECT_NE('.', row.accept.back()) << row.cc;
    EXPECT_EQ((LanguagePair{row.primary, row.accept}), lookupCountryLang(row.cc));
  }
  EXPECT_EQ((LanguagePair{"fr-BE", "fr-BE,fr;q=0.9,nl;q=0.8,en;q=0.7"}), lookupCountryLang("bE"));
  for (const char* code : {"UK", "NG", " DE", "USA", ""}) {
    EXPECT_EQ((LanguagePair{"en-US", "en-US,en;q=0.9"}), lookupCountryLang(code)) << code;
  }
}

/// The flags of an overlay, by letter: a WebRTC, g geo, l language, t timezone. An upper-case
/// letter means that the overlay sets the value itself (G latitude, H longitude, L lang, M
/// accept-language).
OverlayKeys overlayWith(const std::string& flags) {
  OverlayKeys keys;
  const std::vector<std::pair<char, bool OverlayKeys::*>> fields{
      {'a', &OverlayKeys::webrtcNoLeak}, {'A', &OverlayKeys::webrtcFakePublicIpSet},
      {'g', &OverlayKeys::autoGeo},      {'G', &OverlayKeys::geoLatSet},
      {'H', &OverlayKeys::geoLngSet},    {'l', &OverlayKeys::autoLang},
      {'L', &OverlayKeys::langSet},      {'M', &OverlayKeys::acceptLanguageSet},
      {'t', &OverlayKeys::autoTimezone}, {'T', &OverlayKeys::timezoneOverrideSet}};
  for (const auto& [letter, field] : fields) keys.*field = flags.find(letter) != std::string::npos;
  return keys;
}

TEST(Persona, DerivesWhatIsAskedForAndNotCarried) {
  const DiscoverResult reply{"1.1.1.1", 0, 5, "", "", "de", "Z", "52", "13"};
  const std::string list = "de-DE,de;q=0.9,en;q=0.8";
  const std::vector<std::pair<const char*, ResolvedPersona>> rows{
      {"AGHLMT", {}},
      {"a", {.resolvedFakeIP = "1.1.1.1"}},
      {"aA", {}},
      {"gG", {.resolvedGeoLng = "13"}},
      {"gH", {.resolvedGeoLat = "52"}},
      {"gGH", {}},
      {"lL", {.resolvedAcceptLang = list}},
      {"lM", {.resolvedLang = "de-DE"}},
      {"lLM", {}},
      {"t", {.resolvedTZ = "Z"}},
      {"tT", {}},
      {"aglt", {"1.1.1.1", "52", "13", "de-DE", list, "Z"}}};
  for (const auto& [flags, persona] : rows) {
    EXPECT_EQ(persona != ResolvedPersona(), needsDiscovery(overlayWith(flags))) << flags;
    EXPECT_EQ(persona, resolvePersona(overlayWith(flags), reply)) << flags;
    const bool more = std::string(flags).find_first_of("glt") != std::string::npos;
    EXPECT_EQ(more, wantsMoreThanAddress(overlayWith(flags))) << flags;
  }
  const DiscoverResult poor{"1.1.1.1", 0, 5, "", "", "", "", "52", std::string(1, 0)};
  EXPECT_EQ((ResolvedPersona{.resolvedFakeIP = "1.1.1.1"}),
            resolvePersona(overlayWith("aglt"), poor));
}

}  // namespace
}  // namespace quillon
