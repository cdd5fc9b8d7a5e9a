#include "platform/files/bundle.h"

#include "platform/files/files.h"

namespace quillon::platform {

std::optional<Path> Bundle::findResource(std::string_view fileName) const {
  Path file = resources / fileName;
  if (!platform::exists(file)) return std::nullopt;
  return file;
}

Bundle bundleOf(const Path& executable) {
  const Path folder = executable.folder();
  const Path contents = folder.folder();
  if (folder.name() != "MacOS" || contents.name() != "Contents") return {folder, folder};
  return {contents.folder(), contents / "Resources"};
}

}  // namespace quillon::platform
