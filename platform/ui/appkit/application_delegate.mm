#include "platform/ui/appkit/application_delegate.h"

@implementation QuillonApplicationDelegate

- (instancetype)initWithDidFinishLaunching:(void (*)())didFinishLaunching
                           shouldTerminate:(void (*)())shouldTerminate {
  self = [super init];
  if (self != nil) {
    didFinishLaunching_ = didFinishLaunching;
    shouldTerminate_ = shouldTerminate;
  }
  return self;
}

- (void)applicationDidFinishLaunching:(NSNotification*)notification {
  (void)notification;
  didFinishLaunching_();
}

- (NSApplicationTerminateReply)applicationShouldTerminate:(NSApplication*)sender {
  (void)sender;
  shouldTerminate_();
  return NSTerminateNow;
}

/// There is no state to restore. Without this method the system writes a warning to standard error.
- (BOOL)applicationSupportsSecureRestorableState:(NSApplication*)application {
  (void)application;
  return YES;
}

@end
