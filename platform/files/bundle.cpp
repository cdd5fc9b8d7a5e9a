#include "platform/files/bundle.h"

namespace quillon::platform {

std::optional<Path> Bundle::findResource(std::string_view fileName) const {
  Path file = resources / fileName;
  if (!platform::exists(file)) return std::nullopt;
  return file;
}

Bundle bundleOf(const Path& executable) {
  const Path folder = executable.parent_path();
  const Path contents = folder.parent_path();
  if (folder.filename() != "MacOS" || contents.filename() != "Contents") return {folder, folder};
  return {contents.parent_path(), contents / "Resources"};
}

}  // namespace quillon::platform
