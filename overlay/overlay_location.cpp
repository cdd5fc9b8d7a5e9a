#include "overlay/overlay_location.h"

#include <string_view>
#include <utility>

#include "platform/files/files.h"
#include "platform/host/host.h"

namespace quillon {
namespace {

constexpr std::string_view userDataDirPrefix = "--user-data-dir=";
constexpr const char* overlayFileName = "command-line.json";

std::optional<platform::JsonObject> objectIn(const std::optional<std::string>& text) {
  return text ? platform::parseJsonObject(*text) : std::nullopt;
}

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

OverlayFile readOverlayFile(const std::optional<std::string>& userDataDir) {
  if (userDataDir) {
    platform::Path ofProfile = platform::Path(*userDataDir) / overlayFileName;
    const auto text = platform::readFile(ofProfile);
    if (text || platform::exists(ofProfile)) return {std::move(ofProfile), objectIn(text)};
  }
  platform::Path ofUser = perUserFolder() / overlayFileName;
  auto object = readOverlayObject(ofUser);
  return {std::move(ofUser), std::move(object)};
}

std::optional<platform::JsonObject> readOverlayObject(const platform::Path& overlayURL) {
  return objectIn(platform::readFile(overlayURL));
}

}  // namespace quillon
