#pragma once

#include <gtk/gtk.h>

#include <memory>

/// Owners of what the toolkit allocates.
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
using OwnedText = std::unique_ptr<char, Release<g_free>>;
using OwnedFont = std::unique_ptr<PangoFontDescription, Release<pango_font_description_free>>;
using OwnedAttributes = std::unique_ptr<PangoAttrList, Release<pango_attr_list_unref>>;
using OwnedPattern = std::unique_ptr<cairo_pattern_t, Release<cairo_pattern_destroy>>;
using OwnedList = std::unique_ptr<GList, Release<g_list_free>>;
/// The toolkit keeps its top-level windows until they are destroyed.
using OwnedTopLevel = std::unique_ptr<GtkWidget, Release<gtk_widget_destroy>>;

}  // namespace quillon::platform::ui
