#include "discovery/egress_discovery.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <new>
#include <system_error>
#include <utility>

#include "discovery/endpoint_reply.h"
#include "discovery/proxy_setting.h"
#include "platform/files/files.h"
#include "platform/text/text.h"

namespace quillon {
namespace {

constexpr std::int64_t notRun = -1;

struct ExitStatusMeaning {
  int status;
  const char* errorCode;
};

/// The exit statuses of curl with an error code of their own. All others are "INTERNAL".
constexpr std::array<ExitStatusMeaning, 4> exitStatusMeanings{{
    {7, "PROXY_UNREACHABLE"},
    {28, "PROXY_TIMEOUT"},
    {56, "PROXY_AUTH_FAILED"},
    {67, "PROXY_AUTH_FAILED"},
}};

DiscoverResult failure(std::string errorCode, std::string message, std::int64_t curlExitCode,
                       std::int64_t elapsedMs) {
  DiscoverResult result;
  result.curlExitCode = curlExitCode;
  result.elapsedMs = elapsedMs;
  result.errorCode = std::move(errorCode);
  result.message = std::move(message);
  return result;
}

const char* errorCodeOf(int exitStatus) {
  const auto* meaning =
      std::find_if(exitStatusMeanings.begin(), exitStatusMeanings.end(),
                   [&](const ExitStatusMeaning& known) { return known.status == exitStatus; });
  return meaning == exitStatusMeanings.end() ? "INTERNAL" : meaning->errorCode;
}

std::string exitMessage(int exitStatus, std::int64_t elapsedMs, const DiscoveryRequest& request) {
  const std::string route = request.proxyServer.empty() ? "direct" : "via " + request.proxyServer;
  return "curl exit " + std::to_string(exitStatus) + " against " + request.endpointURL + " " +
         route + " after " + std::to_string(elapsedMs) + " ms";
}

std::string noAddressMessage(std::string_view reply, std::uint64_t replyBytes) {
  constexpr std::size_t headCharacters = 80;
  return "curl exit 0 but no usable IP in response — got " + std::to_string(replyBytes) +
         " bytes, head: \"" + std::string(platform::firstCharacters(reply, headCharacters)) + "\"";
}

const char* refusalMessage(ProxyFault fault) {
  return fault == ProxyFault::scheme
             ? "proxy-server is not socks5://… — launcher only handles socks5:// or empty"
             : "proxy-server has a control character (%00 to %1f) in its user name or password — "
               "curl would connect without the proxy";
}

DiscoverResult runCurl(const platform::ChildCommand& command, const DiscoveryRequest& request) {
  const auto start = std::chrono::steady_clock::now();
  const platform::ChildRun run = platform::runChild(command, curlLimits);
  const auto elapsed = std::chrono::steady_clock::now() - start;
  return interpretCurlRun(
      run, std::chrono::duration_cast<std::chrono::milliseconds>(elapsed).count(), request);
}

}  // namespace

std::optional<std::vector<std::string>> curlArguments(const DiscoveryRequest& request) {
  if (proxyFault(request.proxyServer) != ProxyFault::none) return std::nullopt;
  std::vector<std::string> arguments{"--max-time", "10", "-sS"};
  if (!request.proxyServer.empty()) {
    arguments.insert(arguments.end(), {"-x", curlProxy(request.proxyServer)});
  }
  arguments.push_back(request.endpointURL);
  return arguments;
}

platform::Environment curlEnvironment(const DiscoveryRequest& request,
                                      const platform::Environment& inherited) {
  static constexpr std::array<std::string_view, 2> proxyExceptions{"no_proxy", "NO_PROXY"};
  return request.proxyServer.empty() ? inherited : inherited.without(proxyExceptions);
}

DiscoverResult interpretCurlRun(const platform::ChildRun& run, std::int64_t elapsedMs,
                                const DiscoveryRequest& request) {
  if (run.startError != 0) {
    return failure("INTERNAL",
                   "Process.run(curl) failed: " + std::system_category().message(run.startError),
                   notRun, 0);
  }
  if (run.exitStatus != 0) {
    return failure(errorCodeOf(run.exitStatus), exitMessage(run.exitStatus, elapsedMs, request),
                   run.exitStatus, elapsedMs);
  }
  if (run.outputBytes != run.output.size()) {
    // A longer reply was truncated, possibly inside a character.
    const std::string head = platform::withoutInvalidBytes(run.output);
    return failure("DISCOVERY_HTTP_ERROR", noAddressMessage(head, run.outputBytes), 0, elapsedMs);
  }
  if (!platform::isValidUtf8(run.output)) {
    return failure("DISCOVERY_HTTP_ERROR", "curl exit 0 but response not UTF-8", 0, elapsedMs);
  }
  DiscoverResult result = readEndpointReply(run.output);
  result.elapsedMs = elapsedMs;
  if (!isUsableAddress(result.ip)) {
    result.errorCode = "DISCOVERY_HTTP_ERROR";
    result.message = noAddressMessage(run.output, run.outputBytes);
  }
  return result;
}

DiscoverResult discoverEgress(const std::string& proxyServer, const std::string& endpointURL) {
  return discoverEgressWith(curlExecutable, proxyServer, endpointURL);
}

DiscoverResult discoverEgressWith(const platform::Path& curl, const std::string& proxyServer,
                                  const std::string& endpointURL) {
  const DiscoveryRequest request{proxyServer, endpointURL};
  const auto arguments = curlArguments(request);
  if (!arguments) return failure("INTERNAL", refusalMessage(proxyFault(proxyServer)), notRun, 0);
  if (!platform::isExecutableFile(curl)) {
    return failure("CURL_NOT_FOUND",
                   "/usr/bin/curl missing — macOS always ships it; environment is broken", notRun,
                   0);
  }
  try {
    return runCurl({curl, *arguments, curlEnvironment(request, platform::startEnvironment())},
                   request);
  } catch (const std::bad_alloc&) {
    return interpretCurlRun({.startError = ENOMEM}, 0, request);
  }
}

}  // namespace quillon
