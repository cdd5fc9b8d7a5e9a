#import <AppKit/AppKit.h>
#import <QuartzCore/QuartzCore.h>

@implementation NSApplication (QuillonShim)

- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)policy {
  (void)policy;
  return YES;
}

@end

@implementation NSDistributedNotificationCenter (QuillonShim)

/// Without a notification center, GNUstep starts no daemon that would outlive the launcher.
+ (NSDistributedNotificationCenter*)notificationCenterForType:(NSString*)type {
  (void)type;
  return nil;
}

@end

@implementation NSColor (QuillonShim)

- (CGColorRef)CGColor {
  return reinterpret_cast<CGColorRef>(self);
}

@end

@implementation NSFont (QuillonShim)

+ (NSFont*)systemFontOfSize:(CGFloat)size weight:(NSFontWeight)weight {
  return weight < NSFontWeightSemibold ? [self systemFontOfSize:size]
                                       : [self boldSystemFontOfSize:size];
}

+ (NSFont*)monospacedSystemFontOfSize:(CGFloat)size weight:(NSFontWeight)weight {
  (void)weight;
  return [self userFixedPitchFontOfSize:size];
}

@end

@implementation NSTextField (QuillonShim)

+ (NSTextField*)labelWithString:(NSString*)string {
  NSTextField* const label = [[[NSTextField alloc] initWithFrame:NSZeroRect] autorelease];
  [label setStringValue:string];
  [label setBezeled:NO];
  [label setDrawsBackground:NO];
  [label setEditable:NO];
  [label setSelectable:NO];
  [label setLineBreakMode:NSLineBreakByClipping];
  return label;
}

- (void)setLineBreakMode:(NSLineBreakMode)mode {
  [[self cell] setLineBreakMode:mode];
}

- (void)setUsesSingleLineMode:(BOOL)flag {
  [[self cell] setUsesSingleLineMode:flag];
}

@end

@implementation CALayer

- (instancetype)initForWindow:(NSWindow*)window {
  self = [super init];
  window_ = window;
  return self;
}

- (void)setBackgroundColor:(CGColorRef)color {
  [window_ setBackgroundColor:reinterpret_cast<NSColor*>(color)];
}

@end

@implementation CATransaction

/// A window's changes are sent to the display server when the next event is requested.
+ (void)flush {
}

@end

@implementation NSView (QuillonShim)

- (void)setWantsLayer:(BOOL)flag {
  (void)flag;
}

- (CALayer*)layer {
  return [[[CALayer alloc] initForWindow:[self window]] autorelease];
}

@end

@implementation NSWindow (QuillonShim)

- (void)setAnimationBehavior:(NSWindowAnimationBehavior)behavior {
  (void)behavior;
}

- (void)setRestorable:(BOOL)flag {
  (void)flag;
}

- (void)setPreventsApplicationTerminationWhenModal:(BOOL)flag {
  (void)flag;
}

@end

@interface NSAlert (QuillonShimPrivate)
- (void)_setupPanel;
@end

@implementation NSAlert (QuillonShim)

- (void)layout {
  [self _setupPanel];
}

- (NSInteger)runModal {
  // Only an application that has finished launching has a key window.
  if (![NSApp isRunning]) [NSApp finishLaunching];
  // Otherwise a pending event for a previous window's lost focus would take the focus from the
  // panel.
  while (NSEvent* const event =
             [NSApp nextEventMatchingMask:NSEventMaskAny
                                untilDate:[NSDate dateWithTimeIntervalSinceNow:0.2]
                                   inMode:NSDefaultRunLoopMode
                                  dequeue:YES]) {
    [NSApp sendEvent:event];
  }
  const NSInteger answer = [NSApp runModalForWindow:[self window]];
  [[self window] orderOut:nil];
  return answer;
}

@end
