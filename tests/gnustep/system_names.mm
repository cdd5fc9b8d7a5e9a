#import <AppKit/AppKit.h>
#include <CoreGraphics/CoreGraphics.h>
#include <X11/Xlib.h>
#include <dispatch/dispatch.h>
#include <unistd.h>

#include <cstdint>

#include "platform/core/descriptor.h"

namespace {

using quillon::platform::Pipe;

struct Work {
  void (*function)(void*);
  void* context;
};

/// The main queue. Only the main thread sends messages: GNUstep and its runtime deadlock if two
/// threads set up classes and threads at the same time.
Pipe& mainQueue() {
  static Pipe pipe = *Pipe::open();
  return pipe;
}

char serverPort = 0;
void (*invalidationCallBack)(CFMachPortRef, void*) = nullptr;

}  // namespace

/// Runs the main queue in the main thread.
@interface QuillonMainQueue : NSObject <RunLoopEvents>
@end

@implementation QuillonMainQueue

- (void)receivedEvent:(void*)data
                 type:(RunLoopEventType)type
                extra:(void*)extra
              forMode:(NSString*)mode {
  (void)data, (void)type, (void)extra, (void)mode;
  Work work{};
  const ssize_t got = ::read(mainQueue().readEnd.get(), &work, sizeof(work));
  if (got == sizeof(work)) work.function(work.context);
}

@end

dispatch_queue_t dispatch_get_main_queue() {
  return nullptr;
}

void dispatch_async_f(dispatch_queue_t, void* context, void (*function)(void*)) {
  const Work work{function, context};
  (void)!::write(mainQueue().writeEnd.get(), &work, sizeof(work));
}

/// There is a session if the display can be opened. Also disables the icon on the display and
/// enables the window manager's frames, which must be done before there is an application.
CFDictionaryRef CGSessionCopyCurrentDictionary() {
  NSAutoreleasePool* const pool = [[NSAutoreleasePool alloc] init];
  [[NSUserDefaults standardUserDefaults]
      registerDefaults:[NSDictionary
                           dictionaryWithObjectsAndKeys:@"YES", @"GSSuppressAppIcon", @"YES",
                                                        @"GSBackHandlesWindowDecorations", nil]];
  static QuillonMainQueue* const watcher = [[QuillonMainQueue alloc] init];
  void* const end = reinterpret_cast<void*>(std::intptr_t{mainQueue().readEnd.get()});
  [[NSRunLoop currentRunLoop] addEvent:end
                                  type:ET_RDESC
                               watcher:watcher
                               forMode:NSDefaultRunLoopMode];
  [pool drain];
  return reinterpret_cast<CFDictionaryRef>(::XOpenDisplay(nullptr));
}

void CFRelease(const void* session) {
  ::XCloseDisplay(static_cast<Display*>(const_cast<void*>(session)));
}

CFMachPortRef CGWindowServerCreateServerPort() {
  return reinterpret_cast<CFMachPortRef>(&serverPort);
}

void CFMachPortSetInvalidationCallBack(CFMachPortRef, void (*callBack)(CFMachPortRef, void*)) {
  invalidationCallBack = callBack;
  ::XSetIOErrorHandler([](Display*) {
    invalidationCallBack(nullptr, nullptr);
    return 0;
  });
}
