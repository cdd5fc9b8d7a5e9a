#include "discovery/endpoints.h"

#include <algorithm>
#include <array>

#include "deployment.h"
#include "platform/text/text.h"

namespace quillon {

Endpoint primaryEndpoint() {
  const std::string host(deployment::primaryHost);
  return {host, "https://" + host + "/geoip?format=json", std::string(providerLabel(host))};
}

Endpoint fallbackEndpoint() {
  const std::string host(deployment::fallbackHost);
  return {host, "https://" + host + "/myip", host};
}

bool isReservedHost(std::string_view host) {
  constexpr std::array<std::string_view, 6> reserved{"example",     "invalid",     "test",
                                                     "example.com", "example.net", "example.org"};
  // Host names are compared without case.
  const std::string name = platform::lowerCased(host);
  return std::any_of(reserved.begin(), reserved.end(), [&](std::string_view domain) {
    if (!name.ends_with(domain)) return false;
    const std::size_t rest = name.size() - domain.size();
    return rest == 0 || name[rest - 1] == '.';
  });
}

std::string_view providerLabel(std::string_view host) {
  const std::string_view domain = host.substr(0, host.rfind('.'));
  const std::size_t dot = domain.rfind('.');
  return dot == std::string_view::npos ? domain : domain.substr(dot + 1);
}

}  // namespace quillon
