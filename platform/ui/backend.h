#pragma once

#include "platform/ui/alert.h"
#include "platform/ui/window.h"

/// The functions of a user interface: the complete interface between the launcher and a module with
/// a toolkit. All functions except `wake` are called on the main thread.
namespace quillon::platform::ui {

/// How the system shows the application: an accessory does not appear in a task bar or dock.
enum class ActivationPolicy { regular, accessory };

/// The application's functions that a backend calls. Main thread only.
struct ApplicationCalls {
  /// Called by the event loop after each `wake`.
  void (*runPostedTasks)() = nullptr;
  /// Called when the screen is lost, or when the user or the system asks the application to quit.
  /// Ends the process. It does not return.
  void (*quit)() = nullptr;
};

struct Backend {
  /// Connects to the screen. Returns false if there is no screen or it does not work.
  bool (*connect)(const ApplicationCalls& calls);
  void (*setActivationPolicy)(ActivationPolicy policy);
  /// Runs the event loop. Returns when there is nothing left to wait for.
  void (*run)();
  /// Makes the event loop call `runPostedTasks` soon. Any thread.
  void (*wake)();
  /// Shows the window. After this call its `delegate` is notified when the user closes it. The
  /// window must outlive the event loop.
  void (*showWindow)(Window& window);
  void (*updateWindow)(const Window& window);
  /// Handles pending events, then removes the window from the screen before it returns.
  void (*hideWindow)(const Window& window);
  /// Brings the application's shown windows in front of those of other applications.
  void (*activate)();
  /// Shows the alert in front and returns after the user has dismissed it in any way.
  void (*runModal)(const Alert& alert);
};

/// A backend that shows nothing. An alert returns at once.
[[nodiscard]] const Backend& headlessBackend();

/// A module exports one function of this type under the name `backendEntryPoint`. It returns null
/// unless `build` is the module's own build: the objects that both sides use have the same layout
/// only within one build. The result is valid for the life of the process.
using BackendEntryPoint = const Backend*(const char* build);
inline constexpr const char* backendEntryPoint = "quillonBackend";

}  // namespace quillon::platform::ui
