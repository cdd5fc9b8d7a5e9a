#include "inspect/host_state.h"

#include <array>
#include <charconv>
#include <cstring>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

#include "discovery/egress_discovery.h"
#include "platform/probe/other_process.h"
#include "platform/process/environment.h"

namespace quillon {
namespace {

using ProfileFolder = HostState::ProfileFolder;

ProfileFolder profileFolderOf(const std::optional<std::string>& userDataDir) {
  if (!userDataDir || userDataDir->empty()) return ProfileFolder::notNamed;
  if (!platform::exists(*userDataDir)) return ProfileFolder::missing;
  if (!platform::isFolder(*userDataDir)) return ProfileFolder::notAFolder;
  return platform::isWritableFolder(*userDataDir) ? ProfileFolder::writable
                                                  : ProfileFolder::notWritable;
}

/// Chromium's lock is a symbolic link to "HOST-PROCESS". If the process ran on this machine and has
/// ended, the lock was left by a crash, and Chromium replaces it.
bool isInUse(const std::optional<std::string>& userDataDir) {
  if (!userDataDir || userDataDir->empty()) return false;
  std::error_code error;
  const platform::Path lock = platform::Path(*userDataDir) / "SingletonLock";
  const std::string holder = std::filesystem::read_symlink(lock.text(), error).native();
  if (error) return std::filesystem::exists(std::filesystem::symlink_status(lock.text(), error));
  const std::size_t dash = holder.rfind('-');
  if (dash == std::string::npos || holder.substr(0, dash) != platform::hostName()) return true;
  std::int64_t process = 0;
  const char* const end = holder.data() + holder.size();
  const auto [parsed, fault] = std::from_chars(holder.data() + dash + 1, end, process);
  return fault != std::errc() || parsed != end || platform::isRunning(process);
}

/// The first of the files that curl would read, in curl's order.
std::optional<platform::Path> curlConfigurationFile() {
  struct Place {
    std::string_view variable;
    std::string_view file;
  };
  constexpr std::array<Place, 5> places{{{"CURL_HOME", ".curlrc"},
                                         {"XDG_CONFIG_HOME", ".curlrc"},
                                         {"XDG_CONFIG_HOME", "curlrc"},
                                         {"HOME", ".curlrc"},
                                         {"HOME", ".config/curlrc"}}};
  for (const Place& place : places) {
    const auto folder = platform::startEnvironment().value(place.variable);
    if (!folder || folder->empty()) continue;
    platform::Path file = platform::Path(*folder) / place.file;
    if (platform::exists(file)) return file;
  }
  return std::nullopt;
}

std::size_t environmentBytes() {
  std::size_t bytes = 0;
  for (char* const* entry = platform::startEnvironment().entries(); *entry != nullptr; ++entry) {
    bytes += std::strlen(*entry) + 1 + sizeof(char*);
  }
  return bytes;
}

}  // namespace

HostState probeHost(const ProcessValues& values) {
  const LaunchRequest& request = values.request;
  HostState host;
  host.overlay = readJsonFile(values.overlayURL);
  if (!request.overlay.webglProfile.empty()) {
    if (const auto catalogue = readWebglCatalogue(values.cataloguePlaces())) {
      host.catalogueURL = catalogue->url;
      host.catalogue = readJsonFile(catalogue->url);
    }
  }
  host.profileFolder = profileFolderOf(request.userDataDir);
  host.engineIsExecutable = platform::isExecutableFile(request.engineBinary);
  host.curlIsExecutable = platform::isExecutableFile(curlExecutable);
  host.profileIsInUse = isInUse(request.userDataDir);
  host.curlConfiguration = curlConfigurationFile();
  host.argumentLimits = platform::argumentLimits();
  host.environmentBytes = environmentBytes();
  return host;
}

}  // namespace quillon
