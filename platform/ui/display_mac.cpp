#include "platform/ui/display.h"

namespace quillon::platform::ui {

bool mayHaveDisplay() {
  // Only the toolkit can find out whether there is a window server. In an ssh session it does not
  // connect.
  return true;
}

}  // namespace quillon::platform::ui
