#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <future>

#include "launch_table.h"

/// Launches with a headless window that use real curl, SOCKS5 proxies and TLS endpoints. Run by
/// scripts/with-peers.
namespace quillon::tests {
namespace {

using std::chrono::milliseconds;

std::string environmentValue(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

const std::string openProxy = environmentValue("QUILLON_PROXY");

/// Sets the endpoints' replies. Without a reply of the test an endpoint sends its real one.
void answer(const std::string& geoip, const std::string& myip) {
  const Path folder = environmentValue("QUILLON_REPLIES");
  for (const auto& [name, reply] : {std::pair("geoip", geoip), std::pair("myip", myip)}) {
    std::filesystem::remove(folder / name);
    if (!reply.empty()) std::ofstream(folder / name, std::ios::binary) << reply;
  }
}

void answerAsIn(const LaunchRow& row) {
  answer(row.attempts.front().reply, row.attempts.size() > 1 ? row.attempts.back().reply : "");
}

/// The row "ok" with the endpoint's own reply for an exit.
LaunchRow rowAt(const std::string& exit) {
  std::vector<std::pair<const char*, std::string>> changes{
      {R"("country_code":"de")", R"("country_code":"DE")"}, {"203.0.113.7", exit}};
  if (exit == "127.0.0.2") {
    changes.insert(changes.end(), {{"Europe/Berlin", "Asia/Tokyo"},
                                   {"52.52", "35.6895"},
                                   {"13.405", "139.69171"},
                                   {"de-DE,de;", "ja-JP,ja;"},
                                   {"de-DE", "ja-JP"},
                                   {R"("DE")", R"("JP")"}});
  }
  LaunchRow row = rowOf("ok");
  for (const auto& [part, by] : changes) {
    row.result = replaced(row.result, part, by);
    for (std::string& text : row.switches) text = replaced(text, part, by);
  }
  return row;
}

/// A launch of a row through a proxy, with pauses of their real length.
struct Running {
  Running(const LaunchRow& row, const std::string& proxy, int pauseMilliseconds)
      : launch(row, proxy), pauses(pauseMilliseconds) {}

  void expectEnd() {
    const Outcome outcome = ended.get();
    launch.expect(outcome, false);
    EXPECT_GE(outcome.elapsed, pauses);
    EXPECT_LT(outcome.elapsed, pauses + milliseconds(3000));
    if (outcome.engine.empty()) return;
    EXPECT_EQ(launch.environment.size() + 1, outcome.engine.at('E').size());
    if (!outcome.engine.contains('F')) return;  // There is no /proc.
    EXPECT_EQ(3U, outcome.engine.at('F').size()) << "the engine inherits no descriptor of ours";
  }

  TableLaunch launch;
  milliseconds pauses;
  std::future<Outcome> ended = std::async(std::launch::async, [this] { return launch.run(); });
};

TEST(PeerLaunch, ComesToWhatItsRowSays) {
  const std::string passwordProxy = environmentValue("QUILLON_AUTH_PROXY");
  const std::string closedPort = replaced(openProxy, openProxy.substr(openProxy.rfind(':')), ":9");
  const std::string wrongPassword = replaced(passwordProxy, "s3cret", "wrong");
  // These launches need no endpoint and run at the same time as the others.
  Running warned(rowOf("warned"), environmentValue("QUILLON_SILENT_PROXY"), 10500);
  Running unreachable(rowOf("blocked by exit 7"), closedPort, 2820);
  Running refused(rowOf("blocked by exit 97"), wrongPassword, 2820);
  Running unfit(rowOf("blocked by another scheme"), "", 2820);
  using Row = std::tuple<const char*, std::string, int>;
  for (const auto& [name, proxy, pauses] :
       {Row{"ok", openProxy, 500},
        {"ok", passwordProxy, 500},
        {"ok with parts given", openProxy, 500},
        {"ok by the fallback endpoint", openProxy, 500},
        {"blocked by a reply that is not UTF-8", openProxy, 2820},
        {"blocked by a reply without an address", openProxy, 2820}}) {
    answerAsIn(rowOf(name));
    Running(rowOf(name), proxy, pauses).expectEnd();
  }
  answer("", "");
  const LaunchRow first = rowAt(environmentValue("QUILLON_EXIT"));
  const LaunchRow second = rowAt(environmentValue("QUILLON_AUTH_EXIT"));
  Running(first, openProxy, 500).expectEnd();
  Running(second, passwordProxy, 500).expectEnd();
  for (Running* running : {&warned, &unreachable, &refused, &unfit}) running->expectEnd();
  rusage used{};
  ::getrusage(RUSAGE_CHILDREN, &used);
  EXPECT_LT(used.ru_utime.tv_sec, 2) << "to wait takes no processor time";
  const std::string log = contentOf(environmentValue("QUILLON_PROXY_LOG"));
  EXPECT_NE(std::string::npos, log.find("connected to localhost:")) << log;
  EXPECT_EQ(std::string::npos, log.find("connected to 127.")) << "it is for the proxy to look up";
}

TEST(PeerLaunch, ClosedStandardStreamsAreNobodysPipes) {
  answerAsIn(rowOf("ok"));
  LaunchRow row = rowOf("ok");
  row.switches.clear();
  TableLaunch launch(row, openProxy);
  launch.prepare = [] {
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) ::close(stream);
  };
  launch.expect(launch.run(), false);
}

}  // namespace
}  // namespace quillon::tests
