#include "discovery/endpoints.h"

#include "deployment.h"

namespace quillon {

Endpoint primaryEndpoint() {
  const std::string host(deployment::primaryHost);
  return {host, "https://" + host + "/geoip?format=json", std::string(providerLabel(host))};
}

Endpoint fallbackEndpoint() {
  const std::string host(deployment::fallbackHost);
  return {host, "https://" + host + "/myip", host};
}

std::string_view providerLabel(std::string_view host) {
  const std::string_view domain = host.substr(0, host.rfind('.'));
  const std::size_t dot = domain.rfind('.');
  return dot == std::string_view::npos ? domain : domain.substr(dot + 1);
}

}  // namespace quillon
