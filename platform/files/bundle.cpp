#include "platform/files/bundle.h"

namespace quillon::platform {

Bundle bundleOf(const Path& executable) {
  const Path folder = executable.folder();
  const Path contents = folder.folder();
  if (folder.name() != "MacOS" || contents.name() != "Contents") return {folder, folder};
  return {contents.folder(), contents / "Resources"};
}

}  // namespace quillon::platform
