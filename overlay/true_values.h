#pragma once

#include <optional>

#include "platform/text/json.h"

/// Which values of an overlay mean true. The launcher, the reset and the window each have a rule of
/// their own. Pure; any thread.
namespace quillon {

/// The value of a boolean key: true for true, for a number except 0 and for the strings "true" and
/// "1". False for every other value.
[[nodiscard]] bool isTrueKeyValue(const platform::JsonValue& value);

/// The value of a member of "granular-storage-reset": a boolean, or whether a number differs from
/// 0. Nothing for every other value: the member is ignored.
[[nodiscard]] std::optional<bool> resetMemberValue(const platform::JsonValue& value);

/// Whether the window lists a key or a raw switch with this value. False for null, false, the
/// number 0, and a string that is empty, "false", "0", "off" or "no" after spaces around it are
/// removed; case is ignored. True for every other value.
[[nodiscard]] bool isActiveOverlayValue(const platform::JsonValue& value);

}  // namespace quillon
