#include "platform/ui/appkit/screen_window.h"

#import <QuartzCore/QuartzCore.h>

#include <algorithm>

#include "platform/ui/appkit/frame_label.h"
#include "platform/ui/appkit/toolkit_text.h"

/// Reports to the `Window`'s delegate that the user is closing the window.
@interface QuillonWindowDelegate : NSObject <NSWindowDelegate> {
  const quillon::platform::ui::Window* window_;
}
- (instancetype)initForWindow:(const quillon::platform::ui::Window*)window;
@end

@implementation QuillonWindowDelegate

- (instancetype)initForWindow:(const quillon::platform::ui::Window*)window {
  self = [super init];
  if (self != nil) window_ = window;
  return self;
}

- (void)windowWillClose:(NSNotification*)notification {
  (void)notification;
  if (window_->delegate != nullptr) window_->delegate->windowWillClose();
}

@end

namespace quillon::platform::ui {
namespace {

/// The window server accepts lengths up to 10,000 points. A graphics processor accepts up to 16,384
/// pixels, and a point can have two pixels. The title bar is added to this height.
constexpr double greatestHeight = 8000;

/// If a window is higher than the screen, its upper part is shown.
void keepTopOnScreen(NSWindow* window) {
  // The main screen is the one with the focus.
  NSScreen* const own = [window screen];
  NSScreen* const screen = own != nil ? own : [NSScreen mainScreen];
  if (screen == nil) return;
  const NSRect room = [screen visibleFrame];
  const NSRect frame = [window frame];
  if (NSMaxY(frame) <= NSMaxY(room)) return;
  [window setFrameTopLeftPoint:NSMakePoint(NSMinX(frame), NSMaxY(room))];
}

}  // namespace

ScreenWindow::ScreenWindow(Window& window)
    : window_(window),
      delegate_([[QuillonWindowDelegate alloc] initForWindow:&window]),
      screenWindow_([[NSWindow alloc]
          initWithContentRect:NSMakeRect(0, 0, window.contentSize.width,
                                         std::min(window.contentSize.height, greatestHeight))
                    styleMask:NSWindowStyleMaskTitled | NSWindowStyleMaskClosable
                      backing:NSBackingStoreBuffered
                        defer:NO]) {
  setUpFrame();
  paintBackground();
  addLabels();
}

ScreenWindow::~ScreenWindow() {
  [screenWindow_.get() setDelegate:nil];
}

void ScreenWindow::setUpFrame() {
  NSWindow* const screenWindow = screenWindow_.get();
  [screenWindow setTitle:toolkitText(window_.title)];
  if (window_.centered) [screenWindow center];
  keepTopOnScreen(screenWindow);
  const bool isFloating = window_.level == Window::Level::floating;
  [screenWindow setLevel:isFloating ? NSFloatingWindowLevel : NSNormalWindowLevel];
  [screenWindow setReleasedWhenClosed:NO];
  // Otherwise the system offers to restore the window after the process has ended.
  [screenWindow setRestorable:NO];
  [screenWindow setDelegate:delegate_.get()];
}

void ScreenWindow::paintBackground() {
  NSView* const content = [screenWindow_.get() contentView];
  [content setWantsLayer:YES];
  [[content layer] setBackgroundColor:[toolkitColor(window_.background) CGColor]];
}

/// If the height is limited, the window shows the upper part of the content. A label that is not
/// completely inside the window is omitted.
void ScreenWindow::addLabels() {
  NSView* const content = [screenWindow_.get() contentView];
  const double cutOff = std::max(window_.contentSize.height - greatestHeight, 0.0);
  for (const Label& label : window_.labels()) {
    if (label.frame.y < cutOff) continue;
    NSTextField* const field = makeFrameLabel(label);
    [field setFrameOrigin:NSMakePoint(label.frame.x, label.frame.y - cutOff)];
    [content addSubview:field];
    mirrored_.push_back({label, field, label.text, label.color});
  }
}

void ScreenWindow::mirror() {
  for (Mirrored& shown : mirrored_) {
    if (shown.text != shown.label.text) {
      shown.text = shown.label.text;
      [shown.field setStringValue:toolkitText(shown.text)];
    }
    if (shown.color != shown.label.color) {
      shown.color = shown.label.color;
      [shown.field setTextColor:toolkitColor(shown.color)];
    }
  }
}

void ScreenWindow::show() {
  mirror();
  isShown_ = true;
  [screenWindow_.get() makeKeyAndOrderFront:nil];
}

void ScreenWindow::update() {
  if (isShown_) mirror();
}

void ScreenWindow::hide() {
  // Handles a close event that arrived before this call.
  while (NSEvent* const event = [NSApp nextEventMatchingMask:NSEventMaskAny
                                                   untilDate:[NSDate distantPast]
                                                      inMode:NSDefaultRunLoopMode
                                                     dequeue:YES]) {
    [NSApp sendEvent:event];
  }
  isShown_ = false;
  // Hides the window at once, without an animation. The flush is needed because the toolkit sends
  // pending changes in the event loop's next iteration, which may never run.
  [screenWindow_.get() setAnimationBehavior:NSWindowAnimationBehaviorNone];
  [screenWindow_.get() orderOut:nil];
  [CATransaction flush];
}

}  // namespace quillon::platform::ui
