#include "platform/ui/appkit/window_server.h"

#import <CoreGraphics/CoreGraphics.h>
#import <Foundation/Foundation.h>

#include "platform/ui/appkit/owners.h"

namespace quillon::platform::ui {
namespace {

void (*lostWindowServerHandler)() = nullptr;

}  // namespace
}  // namespace quillon::platform::ui

/// Runs the handler on the main thread, also while an alert runs there inside a task of the main
/// queue. During such a task the main queue starts no other task.
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

/// Runs on the thread that watches the port.
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
  // Kept for the life of the process: the port is watched only while it has a reference.
  CFMachPortRef port = CGWindowServerCreateServerPort();
  if (port != nullptr) CFMachPortSetInvalidationCallBack(port, portIsInvalid);
}

}  // namespace quillon::platform::ui
