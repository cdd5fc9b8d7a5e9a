#include "platform/ui/module.h"

#include <dlfcn.h>

#include "build_identity.h"
#include "platform/files/bundle.h"

namespace quillon::platform::ui {
namespace {

Path modulePath() {
  const Bundle bundle = bundleOf(executableLocation());
  const bool isFolderOfItsOwn = bundle.location == bundle.resources;
  return (isFolderOfItsOwn ? bundle.location : bundle.location / "Contents/Frameworks") /
         moduleFileName;
}

}  // namespace

const Backend* loadBackendModule() {
  void* const module = ::dlopen(modulePath().cText(), RTLD_NOW | RTLD_LOCAL);
  if (module == nullptr) return nullptr;
  auto* const entryPoint = reinterpret_cast<BackendEntryPoint*>(::dlsym(module, backendEntryPoint));
  return entryPoint == nullptr ? nullptr : entryPoint(buildIdentity);
}

}  // namespace quillon::platform::ui
