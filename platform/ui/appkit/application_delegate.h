#pragma once

#import <AppKit/AppKit.h>

/// The application's delegate. Passes its calls to the backend. Main thread only.
@interface QuillonApplicationDelegate : NSObject <NSApplicationDelegate> {
  void (*didFinishLaunching_)();
  void (*shouldTerminate_)();
}

/// `didFinishLaunching` is called once the event loop is running. `shouldTerminate` is called when
/// the user or the system asks the application to quit. It must not return: the toolkit would then
/// run destructors and end the process with status 0.
- (instancetype)initWithDidFinishLaunching:(void (*)())didFinishLaunching
                           shouldTerminate:(void (*)())shouldTerminate;

@end
