#include "platform/ui/appkit/screen_alert.h"

#import <AppKit/AppKit.h>

#include "platform/ui/appkit/owners.h"
#include "platform/ui/appkit/toolkit_text.h"

/// Has Escape dismiss the alert that it is put into: a button has one key, and that of an alert's
/// first is Return. Takes no room.
@interface QuillonEscapeKey : NSView
@end

@implementation QuillonEscapeKey

- (BOOL)performKeyEquivalent:(NSEvent*)event {
  if (![[event charactersIgnoringModifiers] isEqualToString:@"\033"]) return NO;
  [NSApp stopModalWithCode:NSAlertFirstButtonReturn];
  return YES;
}

@end

namespace quillon::platform::ui {
namespace {

/// Some thirty lines at the width of an alert: its button stays on the screen.
constexpr std::size_t longestInformation = 1024;

Owned<NSAlert> buildAlert(const Alert& alert) {
  Owned<NSAlert> built([[NSAlert alloc] init]);
  [built.get() setMessageText:toolkitText(alert.messageText)];
  [built.get()
      setInformativeText:toolkitText(firstParagraphs(alert.informativeText), longestInformation)];
  [built.get() setAlertStyle:NSAlertStyleCritical];
  [built.get() addButtonWithTitle:toolkitText(alert.buttonTitle)];
  // Else it is laid out when it is shown, whatever has been added by then.
  [built.get() layout];
  // Else the system could not quit the application, nor end its session, as long as the alert is
  // up.
  [[built.get() window] setPreventsApplicationTerminationWhenModal:NO];
  const Owned<QuillonEscapeKey> escape([[QuillonEscapeKey alloc] initWithFrame:NSZeroRect]);
  [[[built.get() window] contentView] addSubview:escape.get()];
  return built;
}

}  // namespace

void runAlert(const Alert& alert) {
  const AutoreleasePool pool;
  const Owned<NSAlert> built = buildAlert(alert);
  [NSApp activateIgnoringOtherApps:YES];
  [built.get() runModal];
}

}  // namespace quillon::platform::ui
