#include "platform/ui/gtk/session_bus.h"

#include <dbus/dbus.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

#include "platform/ui/gtk/asking.h"

namespace quillon::platform::ui {
namespace {

constexpr const char* addressVariable = "DBUS_SESSION_BUS_ADDRESS";
constexpr const char* accessibilityVariable = "AT_SPI_BUS_ADDRESS";

std::string_view variable(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? "" : value;
}

/// The libraries of the bus trust nobody else's.
bool isOwnSocket(const std::string& path) {
  struct stat facts = {};
  return ::stat(path.c_str(), &facts) == 0 && S_ISSOCK(facts.st_mode) &&
         facts.st_uid == ::geteuid();
}

/// The address that was given, or else the one where a session has its bus by convention. An
/// address may also say to start a bus.
bool hasSessionBus(std::string_view address, std::string_view runtimeFolder) {
  if (!address.empty()) return address.find("autolaunch:") == std::string_view::npos;
  return !runtimeFolder.empty() && isOwnSocket(std::string(runtimeFolder) + "/bus");
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
Connection joinBothBuses(const std::string& givenAddress) {
  const Connection session = owned(::dbus_bus_get_private(DBUS_BUS_SESSION, nullptr));
  if (session == nullptr) return nullptr;
  auto* const asked = static_cast<DBusConnection*>(session.get());
  auto bus = std::make_shared<AccessibilityBus>();
  bus->address = givenAddress.empty() ? askForAddress(asked) : givenAddress;
  if (bus->address.empty()) return nullptr;
  auto* const joined = ::dbus_connection_open_private(bus->address.c_str(), nullptr);
  bus->connection = owned(joined);
  if (joined == nullptr || !::dbus_bus_register(joined, nullptr)) return nullptr;
  return bus;
}

/// The bus that the toolkit may join; null for none.
Connection accessibilityBus() {
  if (!hasSessionBus(variable(addressVariable), variable("XDG_RUNTIME_DIR"))) return nullptr;
  return askOnThread([given = std::string(variable(accessibilityVariable))] {
           return joinBothBuses(given);
         })
      .value_or(nullptr);
}

}  // namespace

void doWithoutSilentBuses() {
  if (const Connection bus = accessibilityBus()) {
    // Else the toolkit would ask once more, and somebody else perhaps.
    ::setenv(accessibilityVariable, static_cast<AccessibilityBus*>(bus.get())->address.c_str(), 1);
    return;
  }
  // The first is for whatever asks for a bus. The bridge could still find one by the display.
  ::setenv(addressVariable, "disabled:", 1);
  ::setenv("NO_AT_BRIDGE", "1", 1);
}

}  // namespace quillon::platform::ui
