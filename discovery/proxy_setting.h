#pragma once

#include <string>
#include <string_view>

/// The overlay's proxy setting, as the discovery uses it. Pure; any thread.
namespace quillon {

/// Why the discovery refuses a proxy setting before it starts curl.
enum class ProxyFault {
  none,
  /// It does not begin with "socks5://".
  scheme,
  /// Its user name or password contains a percent-encoded control character, "%00" to "%1f". curl
  /// 7.88 to 8.14 discards such a proxy without an error and connects directly.
  login,
};

/// An empty setting, a direct connection, has no fault.
[[nodiscard]] ProxyFault proxyFault(std::string_view proxyServer);

/// The value of curl's option "-x" for a setting that is not empty and has no fault: the same URL
/// with the scheme that makes the proxy resolve host names.
[[nodiscard]] std::string curlProxy(std::string_view proxyServer);

}  // namespace quillon
