#include "platform/ui/gtk/application_icon.h"

#include "platform/ui/gtk/owners.h"

namespace quillon::platform::ui {

void setApplicationIcon() {
  const OwnedObject<GdkPixbuf> icon(gdk_pixbuf_new_from_resource("/nimbra.png", nullptr));
  // If the system's PNG reader is missing, the windows have no icon.
  if (icon.get() != nullptr) gtk_window_set_default_icon(icon.get());
}

}  // namespace quillon::platform::ui
