#include "discovery/proxy_setting.h"

namespace quillon {
namespace {

constexpr std::string_view acceptedScheme = "socks5://";
constexpr std::string_view remoteResolvingScheme = "socks5h://";

bool holdsEncodedControlCharacter(std::string_view text) {
  constexpr std::string_view hexDigits = "0123456789abcdefABCDEF";
  for (std::size_t at = text.find('%'); at < text.size(); at = text.find('%', at + 1)) {
    const std::string_view code = text.substr(at + 1, 2);
    const bool isBelowSpace = code.starts_with('0') || code.starts_with('1');
    if (isBelowSpace && code.find_first_of(hexDigits, 1) != std::string_view::npos) return true;
  }
  return false;
}

}  // namespace

ProxyFault proxyFault(std::string_view proxyServer) {
  if (proxyServer.empty()) return ProxyFault::none;
  if (!proxyServer.starts_with(acceptedScheme)) return ProxyFault::scheme;
  // curl skips additional slashes before the login, and its versions differ in where the login
  // ends. Therefore everything before the last "@" is checked.
  const std::size_t end = proxyServer.rfind('@');
  if (end == std::string_view::npos) return ProxyFault::none;
  const bool isSafe = !holdsEncodedControlCharacter(proxyServer.substr(0, end));
  return isSafe ? ProxyFault::none : ProxyFault::login;
}

std::string curlProxy(std::string_view proxyServer) {
  std::string proxy(remoteResolvingScheme);
  proxy += proxyServer.substr(acceptedScheme.size());
  return proxy;
}

}  // namespace quillon
