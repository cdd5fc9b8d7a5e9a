#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/core/path.h"
#include "platform/process/child_process.h"

/// One attempt to discover the egress address of a proxy. Any thread.
namespace quillon {

/// The result of one attempt. An empty `errorCode` means success.
struct DiscoverResult {
  /// As in the reply. After a failure the refused text, if there was one.
  std::string ip;
  /// curl's exit status; -1 if curl was not started.
  std::int64_t curlExitCode = 0;
  /// Milliseconds from curl's start to its end; 0 if curl was not started.
  std::int64_t elapsedMs = 0;
  std::string errorCode;
  std::string message;
  /// As in the reply, in any case.
  std::string countryCode;
  std::string timezone;
  std::string latitude;
  std::string longitude;

  bool operator==(const DiscoverResult&) const = default;
};

inline constexpr const char* curlExecutable = "/usr/bin/curl";

/// curl ends itself after ten seconds and is killed after 15 seconds. A reply of more than 16 MiB
/// has no usable address; only its first 64 KiB are kept, for the message.
inline constexpr platform::ChildLimits curlLimits{std::chrono::seconds(15), std::size_t{16} << 20,
                                                  std::size_t{64} << 10};

/// The input of an attempt.
struct DiscoveryRequest {
  /// Empty for a direct connection, else a URL beginning with "socks5://".
  std::string proxyServer;
  std::string endpointURL;
};

/// curl's arguments for a request. The proxy, not this machine, resolves the endpoint's name.
/// Nothing if the proxy setting has a fault.
[[nodiscard]] std::optional<std::vector<std::string>> curlArguments(
    const DiscoveryRequest& request);

/// curl's environment: the inherited one. If the request has a proxy, without the variables that
/// make curl bypass a proxy.
[[nodiscard]] platform::Environment curlEnvironment(const DiscoveryRequest& request,
                                                    const platform::Environment& inherited);

/// The result of a run of curl.
[[nodiscard]] DiscoverResult interpretCurlRun(const platform::ChildRun& run, std::int64_t elapsedMs,
                                              const DiscoveryRequest& request);

/// Runs curl through the proxy at the endpoint. Blocks until curl ends, usually within ten seconds.
/// Every failure is a result. There is no second attempt.
[[nodiscard]] DiscoverResult discoverEgress(const std::string& proxyServer,
                                            const std::string& endpointURL);

/// The same with another curl.
[[nodiscard]] DiscoverResult discoverEgressWith(const platform::Path& curl,
                                                const std::string& proxyServer,
                                                const std::string& endpointURL);

}  // namespace quillon
