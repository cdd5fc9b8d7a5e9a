#include <gtest/gtest.h>

#include "discovery/country_languages.h"
#include "discovery/egress_discovery.h"
#include "discovery/endpoint_reply.h"
#include "discovery/endpoints.h"
#include "discovery/persona.h"
#include "launch_fixture.h"

namespace quillon {
namespace {

const DiscoveryRequest direct{"", "https://e/x"};
const DiscoveryRequest proxied{"socks5://u:p@h:1", "https://e/x"};

TEST(EgressDiscovery, ArgumentsNameTheProxyThatResolves) {
  using Arguments = std::vector<std::string>;
  EXPECT_EQ((Arguments{"--max-time", "10", "-sS", "https://e/x"}), curlArguments(direct));
  EXPECT_EQ((Arguments{"--max-time", "10", "-sS", "-x", "socks5h://u:p@h:1", "https://e/x"}),
            curlArguments(proxied));
  EXPECT_EQ("socks5h://h:1 ", curlArguments({"socks5://h:1 ", "u"})->at(4));
  for (const char* proxy : {"socks5h://h:1", "SOCKS5://h:1", " socks5://h:1", "http://h", "x"}) {
    EXPECT_FALSE(curlArguments({proxy, "u"})) << proxy;
    const DiscoverResult result = discoverEgress(proxy, "u", "/missing/curl");
    EXPECT_EQ("INTERNAL", result.errorCode);
    EXPECT_EQ(-1, result.curlExitCode);
    EXPECT_EQ("proxy-server is not socks5://… — launcher only handles socks5:// or empty",
              result.message);
  }
}

TEST(EgressDiscovery, CurlThatCannotRunIsAResult) {
  const DiscoverResult missing = discoverEgress("", "u", "/missing/curl");
  EXPECT_EQ("CURL_NOT_FOUND", missing.errorCode);
  EXPECT_EQ("/usr/bin/curl missing — macOS always ships it; environment is broken",
            missing.message);
  const tests::TemporaryFolder folder;
  folder.write("curl", "no program");
  std::filesystem::permissions(folder.path() / "curl", std::filesystem::perms::owner_all);
  const DiscoverResult broken = discoverEgress("", "u", folder.path() / "curl");
  EXPECT_EQ("INTERNAL", broken.errorCode);
  EXPECT_EQ("Process.run(curl) failed: Exec format error", broken.message);
  for (const DiscoverResult& result : {missing, broken}) {
    EXPECT_EQ(-1, result.curlExitCode);
    EXPECT_EQ(0, result.elapsedMs);
  }
}

TEST(EgressDiscovery, ExitStatusDecidesTheErrorCode) {
  const std::vector<std::pair<int, const char*>> rows{
      {5, "INTERNAL"},       {6, "INTERNAL"},           {7, "PROXY_UNREACHABLE"},
      {28, "PROXY_TIMEOUT"}, {56, "PROXY_AUTH_FAILED"}, {67, "PROXY_AUTH_FAILED"},
      {97, "INTERNAL"},      {128 + 9, "INTERNAL"}};
  for (const auto& [status, code] : rows) {
    const platform::ChildRun run{0, status, "203.0.113.7", 11};
    const DiscoverResult result = interpretCurlRun(run, 312, proxied);
    EXPECT_EQ(code, result.errorCode) << status;
    EXPECT_EQ(status, result.curlExitCode);
    EXPECT_EQ(312, result.elapsedMs);
    EXPECT_EQ("", result.ip);
    EXPECT_EQ("curl exit " + std::to_string(status) +
                  " against https://e/x via socks5://u:p@h:1 after 312 ms",
              result.message);
  }
  EXPECT_EQ("curl exit 6 against https://e/x direct after 0 ms",
            interpretCurlRun({0, 6, "", 0}, 0, direct).message);
}

struct ReplyRow {
  std::string reply;
  DiscoverResult expected;
};

DiscoverResult found(std::string ip, std::string country = "", std::string zone = "",
                     std::string latitude = "", std::string longitude = "") {
  return {
      std::move(ip),       0, 5, "", "", std::move(country), std::move(zone), std::move(latitude),
      std::move(longitude)};
}

/// A reply without a usable address; the message quotes its head.
DiscoverResult refused(const std::string& reply, DiscoverResult rest = found(""),
                       const std::string& head = "") {
  rest.errorCode = "DISCOVERY_HTTP_ERROR";
  rest.message = "curl exit 0 but no usable IP in response — got " + std::to_string(reply.size()) +
                 " bytes, head: \"" + (head.empty() ? reply : head) + "\"";
  return rest;
}

TEST(EgressDiscovery, RepliesOfAllSorts) {
  const std::string long45(45, 'x');
  const std::string long46(46, 'x');
  const std::string withoutIp =
      R"({"ip":7,"country_code":"DE","timezone":"Z","latitude":"1.50","longitude":null})";
  const std::string manyAccents(100, 'e');
  const std::string html = "<!DOCTYPE html>\n<html>";
  const std::vector<ReplyRow> rows{
      {R"({"ip":"203.0.113.7","country_code":"de","timezone":"Europe/Berlin","latitude":52.52,
           "longitude":13.405,"other":[1]})",
       found("203.0.113.7", "de", "Europe/Berlin", "52.52", "13.405")},
      {" \r\n\u2028{\"ip\":\" 1.1.1.1 \"}", refused(" \r\n\u2028{\"ip\":\" 1.1.1.1 \"}")},
      {" \r\n{\"ip\":\" 1.1.1.1 \",\"latitude\":-0.5}", found(" 1.1.1.1 ", "", "", "-0.5")},
      {withoutIp, refused(withoutIp, found("", "DE", "Z", "1.50"))},
      {"{not json", refused("{not json")},
      {"{", refused("{")},
      {"[1,2]", refused("[1,2]", found("[1,2]"))},
      {"", refused("")},
      {" \n\t", refused(" \n\t")},
      {"\r\n \t203.0.113.7\u00A0 \nmore\n", found("203.0.113.7")},
      {"1.1.1.1", found("1.1.1.1")},
      {"1.1.1", refused("1.1.1", found("1.1.1"))},
      {long45, found(long45)},
      {long46, refused(long46, found(long46))},
      {html, found("<!DOCTYPE html>")},
      {manyAccents, refused(manyAccents, found(manyAccents), manyAccents.substr(0, 80))},
  };
  for (const ReplyRow& row : rows) {
    EXPECT_EQ(row.expected, interpretCurlRun({0, 0, row.reply, row.reply.size()}, 5, direct))
        << row.reply;
  }
  const DiscoverResult binary = interpretCurlRun({0, 0, "\x7F\xFF", 2}, 5, direct);
  EXPECT_EQ("DISCOVERY_HTTP_ERROR", binary.errorCode);
  EXPECT_EQ("curl exit 0 but response not UTF-8", binary.message);
  // Cut at the limit, inside a character: the message tells the whole length.
  const DiscoverResult cut = interpretCurlRun({0, 0, "1.1.1.1\n\xC3", 64000000}, 5, direct);
  EXPECT_EQ("curl exit 0 but no usable IP in response — got 64000000 bytes, head: \"1.1.1.1\n\"",
            cut.message);
}

TEST(CountryLanguages, TableIsWholeAndLookupIgnoresCase) {
  for (const CountryLang& row : countryLangTable) {
    const std::string language(row.primary.substr(0, 2));
    EXPECT_EQ(row.cc, row.primary.substr(3)) << row.cc;
    EXPECT_TRUE(row.accept.starts_with(std::string(row.primary) + "," + language + ";q=0.9"))
        << row.accept;
    EXPECT_EQ((LanguagePair{row.primary, row.accept}), lookupCountryLang(row.cc));
  }
  EXPECT_EQ((LanguagePair{"en-GB", "en-GB,en;q=0.9"}), lookupCountryLang("gB"));
  EXPECT_EQ("fr-BE,fr;q=0.9,nl;q=0.8,en;q=0.7", lookupCountryLang("be").accept);
  EXPECT_EQ("en-IN,en;q=0.9,hi;q=0.8", lookupCountryLang("in").accept);
  for (const char* code : {"UK", "NG", " DE", "USA", ""}) {
    EXPECT_EQ((LanguagePair{"en-US", "en-US,en;q=0.9"}), lookupCountryLang(code)) << code;
  }
}

TEST(Endpoints, ProviderIsTheLabelLeftOfTheTopLevelDomain) {
  EXPECT_EQ("quillon", providerLabel("geoip.quillon.example"));
  EXPECT_EQ("a", providerLabel("a.example"));
  EXPECT_EQ("localhost", providerLabel("localhost"));
}

/// Flags that an overlay sets, by letter: a WebRTC, g geo, l language, t timezone; the upper-case
/// ones say that the overlay carries the value (G latitude, H longitude, L lang, M
/// accept-language).
OverlayKeys overlayWith(const std::string& flags) {
  OverlayKeys keys;
  const std::vector<std::pair<char, bool OverlayKeys::*>> fields{
      {'a', &OverlayKeys::webrtcNoLeak}, {'A', &OverlayKeys::webrtcFakePublicIpSet},
      {'g', &OverlayKeys::autoGeo},      {'G', &OverlayKeys::geoLatSet},
      {'H', &OverlayKeys::geoLngSet},    {'l', &OverlayKeys::autoLang},
      {'L', &OverlayKeys::langSet},      {'M', &OverlayKeys::acceptLanguageSet},
      {'t', &OverlayKeys::autoTimezone}, {'T', &OverlayKeys::timezoneOverrideSet}};
  for (const auto& [letter, field] : fields) keys.*field = flags.find(letter) != flags.npos;
  return keys;
}

TEST(Persona, DerivesWhatIsAskedForAndNotCarried) {
  struct Row {
    const char* flags;
    bool needsDiscovery;
    ResolvedPersona persona;
  };
  const std::string list = "de-DE,de;q=0.9,en;q=0.8";
  const std::vector<Row> rows{
      {"", false, {}},
      {"AGHLMT", false, {}},
      {"a", true, {.resolvedFakeIP = "203.0.113.7"}},
      {"aA", false, {}},
      {"g", true, {.resolvedGeoLat = "52.52", .resolvedGeoLng = "13.405"}},
      {"gG", true, {.resolvedGeoLng = "13.405"}},
      {"gH", true, {.resolvedGeoLat = "52.52"}},
      {"gGH", false, {}},
      {"l", true, {.resolvedLang = "de-DE", .resolvedAcceptLang = list}},
      {"lL", true, {.resolvedAcceptLang = list}},
      {"lM", true, {.resolvedLang = "de-DE"}},
      {"lLM", false, {}},
      {"t", true, {.resolvedTZ = "Europe/Berlin"}},
      {"tT", false, {}},
      {"aglt", true, {"203.0.113.7", "52.52", "13.405", "de-DE", list, "Europe/Berlin"}},
  };
  const DiscoverResult reply = found("203.0.113.7", "de", "Europe/Berlin", "52.52", "13.405");
  for (const Row& row : rows) {
    const OverlayKeys overlay = overlayWith(row.flags);
    EXPECT_EQ(row.needsDiscovery, needsDiscovery(overlay)) << row.flags;
    EXPECT_EQ(row.persona, resolvePersona(overlay, reply)) << row.flags;
    const bool more = std::string(row.flags).find_first_of("glt") != std::string::npos;
    EXPECT_EQ(more, wantsMoreThanAddress(overlay)) << row.flags;
  }
}

TEST(Persona, WhatTheReplyLacksStaysEmpty) {
  const OverlayKeys all = overlayWith("aglt");
  EXPECT_EQ((ResolvedPersona{.resolvedFakeIP = "1.1.1.1"}),
            resolvePersona(all, found("1.1.1.1", "", "", "52.52", "")));
  const ResolvedPersona unknown = resolvePersona(all, found("1.1.1.1", "NG"));
  EXPECT_EQ("en-US", unknown.resolvedLang);
  EXPECT_EQ("en-US,en;q=0.9", unknown.resolvedAcceptLang);
}

}  // namespace
}  // namespace quillon
