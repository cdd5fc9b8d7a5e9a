#import <AppKit/AppKit.h>
#import <dispatch/dispatch.h>
#include <string_view>

#include "build_identity.h"
#include "platform/ui/appkit/application_delegate.h"
#include "platform/ui/appkit/owners.h"
#include "platform/ui/appkit/screen_alert.h"
#include "platform/ui/appkit/screen_window.h"
#include "platform/ui/appkit/window_server.h"
#include "platform/ui/backend.h"
#include "platform/ui/shown_windows.h"

namespace quillon::platform::ui {
namespace {

struct Screen {
  ApplicationCalls calls;
  bool hasFinishedLaunching = false;
  Owned<QuillonApplicationDelegate> delegate;
  ShownWindows<ScreenWindow> windows;
};

Screen& screen() {
  // Never destroyed: the process ends without running destructors.
  static Screen& theScreen = *new Screen;
  return theScreen;
}

/// Does nothing until the application has finished launching.
void runPostedTasks(void*) {
  if (!screen().hasFinishedLaunching) return;
  const AutoreleasePool pool;
  screen().calls.runPostedTasks();
}

void finishLaunching() {
  screen().hasFinishedLaunching = true;
  runPostedTasks(nullptr);
}

/// The arguments are for a browser and are not documents to open. App Nap is disabled, so that the
/// system does not lengthen the pauses of a launch whose window is covered.
void registerDefaults() {
  NSDictionary* const defaults =
      [NSDictionary dictionaryWithObjectsAndKeys:@"NO", @"NSTreatUnknownArgumentsAsOpen", @"YES",
                                                 @"NSAppSleepDisabled", nil];
  [[NSUserDefaults standardUserDefaults] registerDefaults:defaults];
}

bool connect(const ApplicationCalls& calls) {
  const AutoreleasePool pool;
  if (!hasWindowServer()) return false;
  registerDefaults();
  screen().calls = calls;
  screen().delegate.reset([[QuillonApplicationDelegate alloc]
      initWithDidFinishLaunching:finishLaunching
                 shouldTerminate:calls.quit]);
  [[NSApplication sharedApplication] setDelegate:screen().delegate.get()];
  setLostWindowServerHandler(calls.quit);
  return true;
}

void setActivationPolicy(ActivationPolicy policy) {
  const AutoreleasePool pool;
  const bool isAccessory = policy == ActivationPolicy::accessory;
  [NSApp setActivationPolicy:isAccessory ? NSApplicationActivationPolicyAccessory
                                         : NSApplicationActivationPolicyRegular];
}

void activate() {
  const AutoreleasePool pool;
  [NSApp activateIgnoringOtherApps:YES];
}

void run() {
  const AutoreleasePool pool;
  [NSApp run];
}

void wake() {
  dispatch_async_f(dispatch_get_main_queue(), nullptr, runPostedTasks);
}

void showWindow(Window& window) {
  screen().windows.of(window).show();
}

void updateWindow(const Window& window) {
  if (ScreenWindow* const shown = screen().windows.find(window)) shown->update();
}

void hideWindow(const Window& window) {
  if (ScreenWindow* const shown = screen().windows.find(window)) shown->hide();
}

constexpr Backend backend{
    .connect = connect,
    .setActivationPolicy = setActivationPolicy,
    .run = run,
    .wake = wake,
    .showWindow = showWindow,
    .updateWindow = updateWindow,
    .hideWindow = hideWindow,
    .activate = activate,
    .runModal = runAlert,
};

}  // namespace
}  // namespace quillon::platform::ui

/// The only symbol that the module exports.
extern "C" [[gnu::visibility("default")]] const quillon::platform::ui::Backend* quillonBackend(
    const char* build) {
  using namespace quillon::platform::ui;
  return std::string_view(build) == buildIdentity ? &backend : nullptr;
}
