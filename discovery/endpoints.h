#pragma once

#include <string>
#include <string_view>

/// The two web endpoints that tell the caller's address. Any thread.
namespace quillon {

struct Endpoint {
  /// What texts for the user call it.
  std::string host;
  std::string url;
  /// What the result file calls it.
  std::string provider;
};

/// Answers a JSON object with the address, its country, timezone and coordinates.
[[nodiscard]] Endpoint primaryEndpoint();

/// Answers the bare address.
[[nodiscard]] Endpoint fallbackEndpoint();

/// Whether the host has a name that is reserved for examples and tests, so that nobody answers.
[[nodiscard]] bool isReservedHost(std::string_view host);

/// The label directly left of the top-level domain; the whole name when it has only one label.
[[nodiscard]] std::string_view providerLabel(std::string_view host);

}  // namespace quillon
