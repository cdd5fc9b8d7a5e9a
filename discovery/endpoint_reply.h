#pragma once

#include <string_view>

#include "discovery/egress_discovery.h"

/// The reply of an endpoint. A NUL ends a value of a reply, because it will end the engine's
/// switch. Pure; any thread.
namespace quillon {

/// The address and the other values, from a JSON object or a bare address, both valid UTF-8. A
/// value that the reply does not contain, even the address, is empty.
[[nodiscard]] DiscoverResult readEndpointReply(std::string_view reply);

/// Whether the text has the length of an address, 7 to 45 characters. They can be any characters.
[[nodiscard]] bool isUsableAddress(std::string_view text);

/// Whether the text is not empty.
[[nodiscard]] bool isUsableCoordinate(std::string_view text);

}  // namespace quillon
