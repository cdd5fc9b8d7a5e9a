#pragma once

// Names of AppKit that GNUstep lacks.
#include_next <AppKit/AppKit.h>

constexpr NSAlertStyle NSAlertStyleCritical = NSCriticalAlertStyle;
constexpr NSEventMask NSEventMaskAny = NSAnyEventMask;
enum NSWindowAnimationBehavior : NSInteger { NSWindowAnimationBehaviorNone = 2 };

@class CALayer;

@interface NSAlert (QuillonShim)
- (void)layout;
@end

@interface NSApplication (QuillonShim)
- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)policy;
@end

@interface NSFont (QuillonShim)
+ (NSFont*)systemFontOfSize:(CGFloat)size weight:(NSFontWeight)weight;
+ (NSFont*)monospacedSystemFontOfSize:(CGFloat)size weight:(NSFontWeight)weight;
@end

@interface NSTextField (QuillonShim)
+ (NSTextField*)labelWithString:(NSString*)string;
- (void)setLineBreakMode:(NSLineBreakMode)mode;
- (void)setUsesSingleLineMode:(BOOL)flag;
@end

@interface NSView (QuillonShim)
- (void)setWantsLayer:(BOOL)flag;
- (CALayer*)layer;
@end

@interface NSWindow (QuillonShim)
- (void)setAnimationBehavior:(NSWindowAnimationBehavior)behavior;
- (void)setRestorable:(BOOL)flag;
- (void)setPreventsApplicationTerminationWhenModal:(BOOL)flag;
@end
