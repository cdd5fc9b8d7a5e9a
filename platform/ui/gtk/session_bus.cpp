#include "platform/ui/gtk/session_bus.h"

#include <dbus/dbus.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <string>
#include <string_view>

#include "platform/ui/gtk/asking.h"

namespace quillon::platform::ui {
namespace {

constexpr const char* addressVariable = "DBUS_SESSION_BUS_ADDRESS";

std::string_view variable(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? "" : value;
}

/// The libraries of the bus trust nobody else's.
bool isOwnSocket(const std::string& path) {
  struct stat facts {};
  return ::stat(path.c_str(), &facts) == 0 && S_ISSOCK(facts.st_mode) &&
         facts.st_uid == ::geteuid();
}

/// The address that was given, or else the one where a session has its bus by convention. An
/// address may also say to start a bus.
bool hasSessionBus(std::string_view address, std::string_view runtimeFolder) {
  if (!address.empty()) return address.find("autolaunch:") == std::string_view::npos;
  return !runtimeFolder.empty() && isOwnSocket(std::string(runtimeFolder) + "/bus");
}

/// Null unless the bus takes in a new member.
Connection joinSessionBus() {
  DBusConnection* const joined = ::dbus_bus_get_private(DBUS_BUS_SESSION, nullptr);
  return {joined, [](DBusConnection* connection) {
            if (connection == nullptr) return;
            ::dbus_connection_close(connection);
            ::dbus_connection_unref(connection);
          }};
}

/// A bus that refuses is no trouble: the toolkit goes on at once.
bool sessionBusAnswers() {
  return hasSessionBus(variable(addressVariable), variable("XDG_RUNTIME_DIR")) &&
         askOnThread(joinSessionBus).has_value();
}

}  // namespace

void doWithoutMissingSessionBus() {
  if (sessionBusAnswers()) return;
  // The first is for whatever asks for a bus. The bridge could still find one by the display.
  ::setenv(addressVariable, "disabled:", 1);
  ::setenv("NO_AT_BRIDGE", "1", 1);
}

}  // namespace quillon::platform::ui
