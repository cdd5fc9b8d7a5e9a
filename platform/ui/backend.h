#pragma once

#include "platform/ui/alert.h"
#include "platform/ui/window.h"

/// What a user interface must be able to do: the whole border between the launcher and a module
/// that holds a toolkit. Everything but `wake` is for the main thread.
namespace quillon::platform::ui {

/// How an application shows in the system: an accessory has no place in a task bar or dock.
enum class ActivationPolicy { regular, accessory };

/// What a backend calls in the application. Main thread only.
struct ApplicationCalls {
  /// By the event loop, after each `wake`.
  void (*runPostedTasks)() = nullptr;
  /// When the screen is lost, or the user or the system wants the application to quit. Ends the
  /// process: it does not return.
  void (*quit)() = nullptr;
};

struct Backend {
  /// Connects with the screen; false when there is none that works.
  bool (*connect)(const ApplicationCalls& calls);
  void (*setActivationPolicy)(ActivationPolicy policy);
  /// The event loop; returns when there is nothing left to wait for.
  void (*run)();
  /// Makes the event loop call `runPostedTasks` soon. Any thread.
  void (*wake)();
  /// Shows the window; from now on its `delegate` is told when the user closes it. The window must
  /// outlive the event loop.
  void (*showWindow)(Window& window);
  void (*updateWindow)(const Window& window);
  /// Handles the events that have come in, then takes the window off the screen before it returns.
  void (*hideWindow)(const Window& window);
  /// Brings the application's shown windows in front of those of other applications.
  void (*activate)();
  /// Shows the alert in front and returns once the user has dismissed it by any means.
  void (*runModal)(const Alert& alert);
};

/// Keeps the state and shows nothing; an alert returns at once.
[[nodiscard]] const Backend& headlessBackend();

/// A module exports one function of this type under the name `backendEntryPoint`. It returns null
/// unless `build` is the build that the module itself belongs to: the objects crossing the border
/// have the same layout within one build only. The result is valid as long as the process.
using BackendEntryPoint = const Backend*(const char* build);
inline constexpr const char* backendEntryPoint = "quillonBackend";

}  // namespace quillon::platform::ui
