#include "inspect/json_file.h"

#include <utility>

#include "platform/files/files.h"

namespace quillon {

JsonFile readJsonFile(const platform::Path& path) {
  using enum JsonFile::State;
  const auto text = platform::readFile(path);
  if (!text) return {platform::exists(path) ? unreadable : missing, {}, {}};
  auto object = platform::parseJsonObject(*text);
  const JsonFile::State state = object ? read : malformed;
  return {state, std::move(object), platform::findJsonProblems(*text)};
}

}  // namespace quillon
