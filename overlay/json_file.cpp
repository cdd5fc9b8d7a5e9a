#include "overlay/json_file.h"

#include "platform/files/files.h"

namespace quillon {

JsonFile readJsonFile(const platform::Path& path) {
  JsonFile file;
  const auto text = platform::readFile(path);
  if (text) {
    file.object = platform::parseJsonObject(*text, platform::JsonDepth::all, &file.fault);
    file.state = file.object ? JsonFile::State::read : JsonFile::State::malformed;
  } else {
    file.state = platform::exists(path) ? JsonFile::State::unreadable : JsonFile::State::missing;
  }
  return file;
}

}  // namespace quillon
