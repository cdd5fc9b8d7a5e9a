#pragma once

#include <optional>

#include "platform/core/path.h"
#include "platform/text/json.h"

namespace quillon {

/// What was found where a file with a JSON object should be.
struct JsonFile {
  enum class State { read, missing, unreadable, malformed };

  State state = State::missing;
  /// malformed: why and where.
  platform::JsonFault fault;
  /// read: the object.
  std::optional<platform::JsonObject> object;
};

/// Reads the file; whatever is wrong is a state. Any thread.
[[nodiscard]] JsonFile readJsonFile(const platform::Path& path);

}  // namespace quillon
