#import <AppKit/AppKit.h>
#include <CoreGraphics/CoreGraphics.h>
#include <X11/Xlib.h>
#include <dispatch/dispatch.h>

namespace {

char serverPort = 0;
void (*invalidationCallBack)(CFMachPortRef, void*) = nullptr;

}  // namespace

/// A function in the main queue.
@interface QuillonWork : NSObject {
  void (*function_)(void*);
  void* context_;
}
@end

@implementation QuillonWork

- (instancetype)initWithFunction:(void (*)(void*))function context:(void*)context {
  self = [super init];
  function_ = function;
  context_ = context;
  return self;
}

- (void)perform {
  function_(context_);
}

@end

dispatch_queue_t dispatch_get_main_queue() {
  return nullptr;
}

void dispatch_async_f(dispatch_queue_t, void* context, void (*work)(void*)) {
  NSAutoreleasePool* const pool = [[NSAutoreleasePool alloc] init];
  NSArray* const modes =
      [NSArray arrayWithObjects:NSDefaultRunLoopMode, NSModalPanelRunLoopMode, nil];
  [[[[QuillonWork alloc] initWithFunction:work context:context] autorelease]
      performSelectorOnMainThread:@selector(perform)
                       withObject:nil
                    waitUntilDone:NO
                            modes:modes];
  [pool drain];
}

/// A session has a display that can be opened: without an icon on it, and with the window manager's
/// frames, which has to be said before there is an application.
CFDictionaryRef CGSessionCopyCurrentDictionary() {
  NSAutoreleasePool* const pool = [[NSAutoreleasePool alloc] init];
  [[NSUserDefaults standardUserDefaults]
      registerDefaults:[NSDictionary
                           dictionaryWithObjectsAndKeys:@"YES", @"GSSuppressAppIcon", @"YES",
                                                        @"GSBackHandlesWindowDecorations", nil]];
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
