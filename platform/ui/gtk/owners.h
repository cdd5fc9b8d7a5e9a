#pragma once

#include <gtk/gtk.h>

#include <memory>

/// Owners of objects that the toolkit allocates.
namespace quillon::platform::ui {

template <auto release>
struct Release {
  template <class T>
  void operator()(T* owned) const {
    release(owned);
  }
};

template <class T>
using OwnedObject = std::unique_ptr<T, Release<g_object_unref>>;
using OwnedFont = std::unique_ptr<PangoFontDescription, Release<pango_font_description_free>>;
using OwnedAttributes = std::unique_ptr<PangoAttrList, Release<pango_attr_list_unref>>;
using OwnedPattern = std::unique_ptr<cairo_pattern_t, Release<cairo_pattern_destroy>>;
using OwnedList = std::unique_ptr<GList, Release<g_list_free>>;

struct DestroyAndRelease {
  void operator()(GtkWidget* topLevel) const {
    gtk_widget_destroy(topLevel);
    g_object_unref(topLevel);
  }
};

/// The toolkit owns a top-level window until it is destroyed, possibly by another process. An owner
/// therefore needs a reference of its own.
class OwnedTopLevel : public std::unique_ptr<GtkWidget, DestroyAndRelease> {
 public:
  explicit OwnedTopLevel(GtkWidget* topLevel)
      : std::unique_ptr<GtkWidget, DestroyAndRelease>(topLevel) {
    g_object_ref(topLevel);
  }
};

}  // namespace quillon::platform::ui
