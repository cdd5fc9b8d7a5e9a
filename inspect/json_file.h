#pragma once

#include <optional>

#include "platform/core/path.h"
#include "platform/probe/json_problems.h"
#include "platform/text/json.h"

namespace quillon {

/// A file that should contain a JSON object.
struct JsonFile {
  enum class State { read, missing, unreadable, malformed };

  State state = State::missing;
  /// The object; nothing in every state except `read`.
  std::optional<platform::JsonObject> object;
  /// If the state is `read`, the repeated keys; if it is `malformed`, the fault.
  platform::JsonProblems problems;
};

/// Reads the file. Every failure is a state. Any thread.
[[nodiscard]] JsonFile readJsonFile(const platform::Path& path);

}  // namespace quillon
