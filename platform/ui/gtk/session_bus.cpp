#include "platform/ui/gtk/session_bus.h"

#include <dbus/dbus.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <memory>
#include <optional>
#include <string>

#include "platform/ui/gtk/timed_connection.h"

namespace quillon::platform::ui {
namespace {

constexpr const char* addressVariable = "DBUS_SESSION_BUS_ADDRESS";
constexpr const char* accessibilityVariable = "AT_SPI_BUS_ADDRESS";
constexpr const char* bridgeVariable = "NO_AT_BRIDGE";

std::optional<std::string> variable(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? std::nullopt : std::optional<std::string>(value);
}

void setVariable(const char* name, const std::optional<std::string>& value) {
  value ? ::setenv(name, value->c_str(), 1) : ::unsetenv(name);
}

/// The bus libraries do not trust a socket of another user.
bool isOwnSocket(const std::string& path) {
  struct stat facts = {};
  return ::stat(path.c_str(), &facts) == 0 && S_ISSOCK(facts.st_mode) &&
         facts.st_uid == ::geteuid();
}

std::string addressOfSocket(const std::string& path) {
  const std::unique_ptr<char, decltype(&::dbus_free)> escaped(
      ::dbus_address_escape_value(path.c_str()), ::dbus_free);
  return escaped == nullptr ? "" : std::string("unix:path=") + escaped.get();
}

/// The address from the environment. If it is not set, the conventional address of a session's bus.
/// Empty if there is no bus, or if the address requests that a bus be started.
std::string sessionBusAddress() {
  const std::string given = variable(addressVariable).value_or("");
  if (!given.empty()) return given.find("autolaunch:") == std::string::npos ? given : "";
  const std::string runtimeFolder = variable("XDG_RUNTIME_DIR").value_or("");
  const std::string socket = runtimeFolder + "/bus";
  return !runtimeFolder.empty() && isOwnSocket(socket) ? addressOfSocket(socket) : "";
}

struct AccessibilityBus {
  Connection connection;
  std::string address;
};

Connection owned(DBusConnection* connection) {
  return {connection, [](DBusConnection* last) {
            if (last == nullptr) return;
            ::dbus_connection_close(last);
            ::dbus_connection_unref(last);
          }};
}

/// Null unless there is a bus and it accepts a new client.
Connection join(const std::string& address) {
  if (address.empty()) return nullptr;
  auto* const joined = ::dbus_connection_open_private(address.c_str(), nullptr);
  Connection bus = owned(joined);
  return joined != nullptr && ::dbus_bus_register(joined, nullptr) != FALSE ? bus : nullptr;
}

/// The address of the accessibility bus, according to the session bus, which may start one for this
/// request. Empty if there is no such bus.
std::string askForAddress(DBusConnection* session) {
  using Message = std::unique_ptr<DBusMessage, decltype(&::dbus_message_unref)>;
  const Message question(
      ::dbus_message_new_method_call("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress"),
      ::dbus_message_unref);
  if (question == nullptr) return "";
  const Message answer(::dbus_connection_send_with_reply_and_block(
                           session, question.get(), DBUS_TIMEOUT_USE_DEFAULT, nullptr),
                       ::dbus_message_unref);
  const char* address = "";
  if (answer == nullptr || !::dbus_message_get_args(answer.get(), nullptr, DBUS_TYPE_STRING,
                                                    &address, DBUS_TYPE_INVALID)) {
    return "";
  }
  return address;
}

/// Null unless both buses accept a new client.
Connection joinBothBuses(const std::string& sessionAddress, const std::string& givenAddress) {
  const Connection session = join(sessionAddress);
  if (session == nullptr) return nullptr;
  auto bus = std::make_shared<AccessibilityBus>();
  bus->address = givenAddress.empty() ? askForAddress(static_cast<DBusConnection*>(session.get()))
                                      : givenAddress;
  bus->connection = join(bus->address);
  return bus->connection == nullptr ? nullptr : bus;
}

}  // namespace

void disableUnresponsiveBuses() {
  const std::string address = sessionBusAddress();
  const std::optional<std::string> bridge = variable(bridgeVariable);
  // A thread that is left running may read the environment at any time, so these changes are made
  // before it starts. The first variable disables every use of the session bus. The accessibility
  // bridge could still find a bus through the display, so the second variable disables the bridge.
  setVariable(addressVariable, "disabled:");
  setVariable(bridgeVariable, "1");
  if (address.empty()) return;
  const Connection bus =
      connectWithTimeout([address, given = variable(accessibilityVariable).value_or("")] {
        return joinBothBuses(address, given);
      }).value_or(nullptr);
  if (bus == nullptr) return;
  // The thread has returned a result, so it no longer reads the environment.
  setVariable(addressVariable, address);
  setVariable(bridgeVariable, bridge);
  // Otherwise the toolkit would ask for the address again, and might get another bus.
  setVariable(accessibilityVariable, static_cast<AccessibilityBus*>(bus.get())->address);
}

}  // namespace quillon::platform::ui
