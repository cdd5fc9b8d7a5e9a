#include "overlay/overlay_location.h"

#include <string_view>

#include "platform/files/files.h"
#include "platform/host/host.h"

namespace quillon {
namespace {

constexpr std::string_view userDataDirPrefix = "--user-data-dir=";
constexpr const char* overlayFileName = "command-line.json";

}  // namespace

std::optional<std::string> userDataDirFromArgs(const std::vector<std::string>& arguments) {
  for (const std::string& argument : arguments) {
    if (argument.starts_with(userDataDirPrefix)) return argument.substr(userDataDirPrefix.size());
  }
  return std::nullopt;
}

platform::Path perUserFolder() {
  return platform::homeFolder() / "Library/Application Support/Quillon";
}

platform::Path overlayFileURL(const std::optional<std::string>& userDataDir) {
  if (userDataDir) {
    platform::Path ofProfile = platform::Path(*userDataDir) / overlayFileName;
    if (platform::exists(ofProfile)) return ofProfile;
  }
  return perUserFolder() / overlayFileName;
}

std::optional<platform::JsonObject> readOverlayObject(const platform::Path& overlayURL) {
  const auto text = platform::readFile(overlayURL);
  return text ? platform::parseJsonObject(*text) : std::nullopt;
}

}  // namespace quillon
