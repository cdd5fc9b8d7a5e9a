#include "platform/ui/appkit/window_server.h"

#import <CoreGraphics/CoreGraphics.h>
#import <dispatch/dispatch.h>

namespace quillon::platform::ui {
namespace {

void (*lostWindowServerHandler)() = nullptr;

/// On whatever thread watches the port.
void portIsInvalid(CFMachPortRef, void*) {
  dispatch_async_f(dispatch_get_main_queue(), nullptr, [](void*) { lostWindowServerHandler(); });
}

}  // namespace

bool hasWindowServer() {
  const CFDictionaryRef session = CGSessionCopyCurrentDictionary();
  if (session == nullptr) return false;
  CFRelease(session);
  return true;
}

void setLostWindowServerHandler(void (*handle)()) {
  lostWindowServerHandler = handle;
  // Kept as long as the process: with the last reference the watching ends.
  CFMachPortRef port = CGWindowServerCreateServerPort();
  if (port != nullptr) CFMachPortSetInvalidationCallBack(port, portIsInvalid);
}

}  // namespace quillon::platform::ui
