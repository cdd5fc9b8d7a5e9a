#pragma once

#include <string>
#include <string_view>

/// The overlay's proxy setting, as far as a discovery depends on it. Pure; any thread.
namespace quillon {

/// Why a discovery refuses a proxy setting before curl is started.
enum class ProxyFault {
  none,
  /// It does not begin with "socks5://".
  scheme,
  /// Its user name or password holds a percent-encoded control character, "%00" to "%1f". curl
  /// 7.88 to 8.14 discards such a proxy without an error and connects directly.
  login,
};

/// An empty setting, a direct connection, has no fault.
[[nodiscard]] ProxyFault proxyFault(std::string_view proxyServer);

/// What curl's option "-x" takes for a setting that is not empty and has no fault: the same, with
/// the scheme that leaves it to the proxy to resolve host names.
[[nodiscard]] std::string curlProxy(std::string_view proxyServer);

}  // namespace quillon
