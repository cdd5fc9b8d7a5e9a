#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>

#include "build_identity.h"
#include "platform/ui/backend.h"
#include "platform/ui/gtk/application_icon.h"
#include "platform/ui/gtk/display_probe.h"
#include "platform/ui/gtk/lost_display.h"
#include "platform/ui/gtk/owners.h"
#include "platform/ui/gtk/screen_alert.h"
#include "platform/ui/gtk/screen_window.h"
#include "platform/ui/gtk/session_bus.h"
#include "platform/ui/gtk/silenced_standard_error.h"
#include "platform/ui/gtk/startup_notification.h"
#include "platform/ui/shown_windows.h"

namespace quillon::platform::ui {
namespace {

struct Screen {
  ApplicationCalls calls;
  ActivationPolicy policy = ActivationPolicy::regular;
  ShownWindows<ScreenWindow> windows;
};

Screen& screen() {
  // Never destroyed: the process ends without running destructors.
  static Screen& theScreen = *new Screen;
  return theScreen;
}

/// Standard error belongs to the launcher: the toolkit's messages on themes and buses are
/// discarded.
void silenceToolkit() {
  g_log_set_writer_func(
      [](GLogLevelFlags, const GLogField*, gsize, void*) {
        noticeLostDisplay();
        return G_LOG_WRITER_HANDLED;
      },
      nullptr, nullptr);
  g_set_printerr_handler([](const char*) {});
}

/// The font library reports errors of its configuration when the first font is loaded. Only the
/// first line sends requests to the display.
void loadFirstFont() {
  const OwnedObject<PangoContext> context(gdk_pango_context_get());
  const OwnedFont description(pango_font_description_new());
  const OwnedObject<PangoFont> loaded(pango_context_load_font(context.get(), description.get()));
}

/// Has no object to destroy while it waits for the display, because a lost display leaves this
/// function by longjmp.
bool connectToolkit() {
  if (gtk_init_check(nullptr, nullptr) == FALSE) return false;
  loadFirstFont();
  return true;
}

bool initializeToolkit() {
  const SilencedStandardError silenced;
  const std::optional<Connection> display = probeDisplay();
  // If the display did not reply, a thread is left that may read the environment. The environment
  // must not change after that.
  if (!display) return false;
  const std::string startupId = takeStartupId();
  // Nothing here is drawn by OpenGL. Its library crashes if the display is lost while the library
  // probes it.
  ::setenv("GDK_GL", "disable", 1);
  // The last change of the environment: this function, too, may leave a thread running.
  disableUnresponsiveBuses();
  // Numbers and system messages are the same with and without a window.
  gtk_disable_setlocale();
  if (!connectWithDisplay(connectToolkit, screen().calls.quit)) return false;
  passStartupId(startupId);
  return true;
}

bool connect(const ApplicationCalls& calls) {
  silenceToolkit();
  screen().calls = calls;
  if (!initializeToolkit()) return false;
  setApplicationIcon();
  return true;
}

gboolean runPostedTasksOnce(void*) {
  screen().calls.runPostedTasks();
  return G_SOURCE_REMOVE;
}

void wake() {
  g_idle_add_full(G_PRIORITY_DEFAULT, runPostedTasksOnce, nullptr, nullptr);
}

void showWindow(Window& window) {
  screen().windows.of(window, screen().policy).show();
}

void updateWindow(const Window& window) {
  if (ScreenWindow* const shown = screen().windows.find(window)) shown->update();
}

void hideWindow(const Window& window) {
  if (ScreenWindow* const shown = screen().windows.find(window)) shown->hide();
}

void activate() {
  screen().windows.each(&ScreenWindow::raise);
}

constexpr Backend backend{
    .connect = connect,
    .setActivationPolicy = [](ActivationPolicy policy) { screen().policy = policy; },
    .run = gtk_main,
    .wake = wake,
    .showWindow = showWindow,
    .updateWindow = updateWindow,
    .hideWindow = hideWindow,
    .activate = activate,
    .runModal = [](const Alert& alert) { runAlert(alert, screen().policy); },
};

}  // namespace
}  // namespace quillon::platform::ui

/// The only symbol that the module exports.
extern "C" [[gnu::visibility("default")]] const quillon::platform::ui::Backend* quillonBackend(
    const char* build) {
  using namespace quillon::platform::ui;
  return std::string_view(build) == buildIdentity ? &backend : nullptr;
}
