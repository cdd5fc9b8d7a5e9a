#pragma once

#import <AppKit/AppKit.h>

@interface CALayer : NSObject {
  NSWindow* window_;
}
- (void)setBackgroundColor:(CGColorRef)color;
@end

@interface CATransaction : NSObject
+ (void)flush;
@end
