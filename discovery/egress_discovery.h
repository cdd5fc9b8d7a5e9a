#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/core/path.h"
#include "platform/process/child_process.h"

/// One attempt to learn the address that a proxy exits from. Any thread.
namespace quillon {

/// The outcome of one attempt. An empty `errorCode` is success.
struct DiscoverResult {
  /// As the endpoint gave it; on a failure the refused candidate, if there was one.
  std::string ip;
  /// curl's exit status; -1 when it was not run or could not be started.
  std::int64_t curlExitCode = 0;
  /// Milliseconds from curl's start to its end; 0 when it was not run.
  std::int64_t elapsedMs = 0;
  std::string errorCode;
  std::string message;
  /// As the endpoint gave it, in any case.
  std::string countryCode;
  std::string timezone;
  std::string latitude;
  std::string longitude;

  bool operator==(const DiscoverResult&) const = default;
};

inline constexpr const char* curlExecutable = "/usr/bin/curl";

/// curl's own limit is ten seconds; one that is still there after fifteen is killed. A reply above
/// 16 MiB, which no honest endpoint sends, has no usable address; its head is kept for the message.
inline constexpr platform::ChildLimits curlLimits{std::chrono::seconds(15), std::size_t{16} << 20,
                                                  std::size_t{64} << 10};

/// What an attempt asks for.
struct DiscoveryRequest {
  /// Empty for a direct connection, else a URL beginning with "socks5://".
  std::string proxyServer;
  std::string endpointURL;
};

/// curl's arguments for a request. The proxy, not this machine, resolves the endpoint's name.
/// Nothing when the proxy setting has a fault.
[[nodiscard]] std::optional<std::vector<std::string>> curlArguments(
    const DiscoveryRequest& request);

/// What curl finds in its environment, given what this process found: all of it, but through a
/// proxy nothing that makes curl go around it.
[[nodiscard]] platform::Environment curlEnvironment(const DiscoveryRequest& request,
                                                    const platform::Environment& inherited);

/// What a run of curl means.
[[nodiscard]] DiscoverResult interpretCurlRun(const platform::ChildRun& run, std::int64_t elapsedMs,
                                              const DiscoveryRequest& request);

/// Runs curl through the proxy against the endpoint. Blocks while it runs, ten seconds by curl's
/// own limit. Every failure is a result; nothing is tried again.
[[nodiscard]] DiscoverResult discoverEgress(const std::string& proxyServer,
                                            const std::string& endpointURL);

/// The same with another curl.
[[nodiscard]] DiscoverResult discoverEgressWith(const platform::Path& curl,
                                                const std::string& proxyServer,
                                                const std::string& endpointURL);

}  // namespace quillon
