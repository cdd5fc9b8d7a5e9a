#include "platform/ui/gtk/display_probe.h"

#include <wayland-client-core.h>
#include <xcb/xcb.h>

#include <array>
#include <cstdlib>
#include <sstream>
#include <string>
#include <string_view>
#include <variant>

namespace quillon::platform::ui {
namespace {

Connection connectWithWayland() {
  // A connection that was passed to this process is for the toolkit. It was just made by its
  // display, so there is no need to probe it.
  if (std::getenv("WAYLAND_SOCKET") != nullptr) return std::make_shared<std::monostate>();
  wl_display* const display = ::wl_display_connect(nullptr);
  if (display == nullptr) return nullptr;
  Connection connection(display, ::wl_display_disconnect);
  return ::wl_display_roundtrip(display) < 0 ? nullptr : connection;
}

Connection connectWithX11() {
  Connection connection(::xcb_connect(nullptr, nullptr), [](void* opened) {
    ::xcb_disconnect(static_cast<xcb_connection_t*>(opened));
  });
  auto* const opened = static_cast<xcb_connection_t*>(connection.get());
  return ::xcb_connection_has_error(opened) != 0 ? nullptr : connection;
}

struct Kind {
  std::string_view name;
  Connection (*connect)();
};

/// In the order in which the toolkit tries them.
constexpr std::array<Kind, 2> kinds{{{"wayland", connectWithWayland}, {"x11", connectWithX11}}};

/// `names` has the toolkit's format: kinds separated by commas, where an asterisk means all kinds.
Connection connectWithFirst(const std::string& names) {
  std::istringstream stream(names);
  for (std::string name; std::getline(stream, name, ',');) {
    for (const Kind& kind : kinds) {
      if (name != "*" && name != kind.name) continue;
      if (Connection connection = kind.connect()) return connection;
    }
  }
  return nullptr;
}

}  // namespace

std::optional<Connection> probeDisplay() {
  const char* const wanted = std::getenv("GDK_BACKEND");
  return connectWithTimeout(
      [names = std::string(wanted == nullptr ? "*" : wanted)] { return connectWithFirst(names); });
}

}  // namespace quillon::platform::ui
