#pragma once

#include <string>
#include <string_view>

/// The two web endpoints that reply with the client's address. Any thread.
namespace quillon {

struct Endpoint {
  /// Its name in texts for the user.
  std::string host;
  std::string url;
  /// Its name in the result file.
  std::string provider;
};

/// Replies with a JSON object: the address, its country, timezone and coordinates.
[[nodiscard]] Endpoint primaryEndpoint();

/// Replies with the bare address.
[[nodiscard]] Endpoint fallbackEndpoint();

/// Whether the host's name is reserved for examples and tests, so that there is no such host.
[[nodiscard]] bool isReservedHost(std::string_view host);

/// The label to the left of the top-level domain. If the name has only one label, that label.
[[nodiscard]] std::string_view providerLabel(std::string_view host);

}  // namespace quillon
