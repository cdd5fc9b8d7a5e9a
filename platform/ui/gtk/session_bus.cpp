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

/// The libraries of the bus trust nobody else's.
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

/// The address that was given, or else the one where a session has its bus by convention. Empty for
/// none, and for an address that says to start a bus.
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

/// Null unless there is a bus and it takes in a new member.
Connection join(const std::string& address) {
  if (address.empty()) return nullptr;
  auto* const joined = ::dbus_connection_open_private(address.c_str(), nullptr);
  Connection bus = owned(joined);
  return joined != nullptr && ::dbus_bus_register(joined, nullptr) != FALSE ? bus : nullptr;
}

/// Where the session says its accessibility bus is; it may start one to say so. Empty for none.
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

/// Null unless both buses take in a new member.
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
  // A thread that is left behind may read the environment at any time: this has to come before it
  // starts. The first variable is for everything that asks for a bus. The bridge could still find
  // one by the display.
  setVariable(addressVariable, "disabled:");
  setVariable(bridgeVariable, "1");
  if (address.empty()) return;
  const Connection bus =
      connectWithTimeout([address, given = variable(accessibilityVariable).value_or("")] {
        return joinBothBuses(address, given);
      }).value_or(nullptr);
  if (bus == nullptr) return;
  // There was an answer, so the thread is done.
  setVariable(addressVariable, address);
  setVariable(bridgeVariable, bridge);
  // Else the toolkit would ask once more, and perhaps another bus.
  setVariable(accessibilityVariable, static_cast<AccessibilityBus*>(bus.get())->address);
}

}  // namespace quillon::platform::ui
