#pragma once

#include <string_view>

#include "discovery/egress_discovery.h"

/// What an endpoint answered. Pure; any thread.
namespace quillon {

/// The address and what comes with it, from a JSON object or a bare reply, both valid UTF-8. What
/// the reply does not tell stays empty, the address included.
[[nodiscard]] DiscoverResult readEndpointReply(std::string_view reply);

/// Whether the text has the length of an address: 7 to 45 characters, which are not looked at but
/// for a NUL: it ends the text, as it will end the engine's switch.
[[nodiscard]] bool isUsableAddress(std::string_view text);

}  // namespace quillon
