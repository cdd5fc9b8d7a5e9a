#include "platform/ui/appkit/window_server.h"

#import <CoreGraphics/CoreGraphics.h>
#import <Foundation/Foundation.h>

#include "platform/ui/appkit/owners.h"

namespace quillon::platform::ui {
namespace {

void (*lostWindowServerHandler)() = nullptr;

}  // namespace
}  // namespace quillon::platform::ui

/// Leads to the main thread even while an alert runs there within a task of the main queue, which
/// takes up no other one meanwhile.
@interface QuillonServerLoss : NSObject
+ (void)handle;
@end

@implementation QuillonServerLoss

+ (void)handle {
  quillon::platform::ui::lostWindowServerHandler();
}

@end

namespace quillon::platform::ui {
namespace {

/// On whatever thread watches the port.
void portIsInvalid(CFMachPortRef, void*) {
  const AutoreleasePool pool;
  [[QuillonServerLoss class] performSelectorOnMainThread:@selector(handle)
                                              withObject:nil
                                           waitUntilDone:YES];
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
