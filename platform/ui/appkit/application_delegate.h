#pragma once

#import <AppKit/AppKit.h>

/// Listens to the application for its backend. Main thread only.
@interface QuillonApplicationDelegate : NSObject <NSApplicationDelegate> {
  void (*didFinishLaunching_)();
  void (*shouldTerminate_)();
}

/// `didFinishLaunching` is called once the event loop is running, `shouldTerminate` when the user
/// or the system wants the application to quit; it must not return, or the process would end in the
/// toolkit's way: with status 0, tearing everything down.
- (instancetype)initWithDidFinishLaunching:(void (*)())didFinishLaunching
                           shouldTerminate:(void (*)())shouldTerminate;

@end
