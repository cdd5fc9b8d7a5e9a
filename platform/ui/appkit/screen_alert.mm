#include "platform/ui/appkit/screen_alert.h"

#import <AppKit/AppKit.h>

#include "platform/ui/appkit/owners.h"
#include "platform/ui/appkit/toolkit_text.h"

/// A view that makes Escape dismiss the alert that contains it. A button has only one key, and
/// Return is the key of the alert's first button. The view has no size.
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

/// About thirty lines at the width of an alert, so that its button stays on the screen.
constexpr std::size_t longestInformation = 1024;

Owned<NSAlert> buildAlert(const Alert& alert) {
  Owned<NSAlert> built([[NSAlert alloc] init]);
  [built.get() setMessageText:toolkitText(alert.messageText)];
  [built.get()
      setInformativeText:toolkitText(firstParagraphs(alert.informativeText), longestInformation)];
  [built.get() setAlertStyle:NSAlertStyleCritical];
  [built.get() addButtonWithTitle:toolkitText(alert.buttonTitle)];
  // Done before the view below is added. Otherwise the alert is laid out when it is shown, with
  // everything added until then.
  [built.get() layout];
  // Otherwise the system cannot quit the application or end its session while the alert is shown.
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
