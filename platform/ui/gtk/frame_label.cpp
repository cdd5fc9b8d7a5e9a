#include "platform/ui/gtk/frame_label.h"

#include <cmath>

#include "platform/ui/display_text.h"
#include "platform/ui/gtk/owners.h"

namespace quillon::platform::ui {
namespace {

/// The memory that the toolkit allocates for one widget: the label, then our own data.
// NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init): the toolkit sets it up.
struct FrameLabel {
  GtkLabel label;
  Color color;
};

GtkWidgetClass* labelClass() {
  static auto* const widgetClass = GTK_WIDGET_CLASS(g_type_class_ref(GTK_TYPE_LABEL));
  return widgetClass;
}

FrameLabel& stateOf(GtkWidget* widget) {
  return *reinterpret_cast<FrameLabel*>(widget);
}

/// Requests no size: the size set by the container is the frame.
void askForNothing(GtkWidget*, int* minimum, int* natural) {
  *minimum = *natural = 0;
}

/// Uses only the shape of the text that the toolkit draws. The label's colour is painted through
/// this shape, so that neither a theme nor a font with coloured glyphs can change it.
gboolean drawInFrame(GtkWidget* widget, cairo_t* context) {
  cairo_save(context);
  cairo_rectangle(context, 0, 0, gtk_widget_get_allocated_width(widget),
                  gtk_widget_get_allocated_height(widget));
  cairo_clip(context);
  cairo_push_group_with_content(context, CAIRO_CONTENT_ALPHA);
  labelClass()->draw(widget, context);
  const OwnedPattern shape(cairo_pop_group(context));
  setSource(context, stateOf(widget).color);
  cairo_mask(context, shape.get());
  cairo_restore(context);
  return GDK_EVENT_PROPAGATE;
}

void initializeClass(void* frameLabelClass, void*) {
  auto* const widgetClass = GTK_WIDGET_CLASS(frameLabelClass);
  widgetClass->get_preferred_width = askForNothing;
  widgetClass->get_preferred_height = askForNothing;
  widgetClass->draw = drawInFrame;
}

GType frameLabelType() {
  static const GType type =
      g_type_register_static_simple(GTK_TYPE_LABEL, "QuillonFrameLabel", sizeof(GtkLabelClass),
                                    initializeClass, sizeof(FrameLabel), nullptr, GTypeFlags{});
  return type;
}

PangoWeight pangoWeight(Font::Weight weight) {
  switch (weight) {
    case Font::Weight::regular:
      return PANGO_WEIGHT_NORMAL;
    case Font::Weight::semibold:
      return PANGO_WEIGHT_SEMIBOLD;
    case Font::Weight::bold:
      return PANGO_WEIGHT_BOLD;
  }
  return PANGO_WEIGHT_NORMAL;
}

/// Without a family the font is the desktop's own. An absolute size is in points of the window. A
/// relative size would grow with the desktop's text scaling and exceed the frames.
OwnedAttributes attributesFor(const Font& font) {
  const OwnedFont description(pango_font_description_new());
  if (font.family == Font::Family::monospacedSystem) {
    pango_font_description_set_family_static(description.get(), "monospace");
  }
  pango_font_description_set_style(description.get(), PANGO_STYLE_NORMAL);
  pango_font_description_set_weight(description.get(), pangoWeight(font.weight));
  pango_font_description_set_absolute_size(description.get(), font.size * PANGO_SCALE);
  OwnedAttributes attributes(pango_attr_list_new());
  pango_attr_list_insert(attributes.get(), pango_attr_font_desc_new(description.get()));
  return attributes;
}

float horizontalPlace(Alignment alignment) {
  switch (alignment) {
    case Alignment::natural:
      return 0;
    case Alignment::center:
      return 0.5F;
    case Alignment::right:
      return 1;
  }
  return 0;
}

bool fontsHaveTextOf(GtkLabel* label) {
  return pango_layout_get_unknown_glyphs_count(gtk_label_get_layout(label)) == 0;
}

}  // namespace

GtkWidget* makeFrameLabel(const Label& label) {
  auto* const widget = GTK_WIDGET(g_object_new(frameLabelType(), nullptr));
  auto* const text = GTK_LABEL(widget);
  gtk_widget_set_size_request(widget, static_cast<int>(std::lround(label.frame.width)),
                              static_cast<int>(std::lround(label.frame.height)));
  gtk_label_set_single_line_mode(text, TRUE);
  gtk_label_set_attributes(text, attributesFor(label.font).get());
  gtk_label_set_xalign(text, horizontalPlace(label.alignment));
  if (label.lineBreakMode == LineBreakMode::truncateMiddle) {
    gtk_label_set_ellipsize(text, PANGO_ELLIPSIZE_MIDDLE);
  }
  setFrameLabelText(widget, label);
  setFrameLabelColor(widget, label.color);
  return widget;
}

void setFrameLabelText(GtkWidget* frameLabel, const Label& label) {
  auto* const text = GTK_LABEL(frameLabel);
  gtk_label_set_text(text, displayText(label.text).c_str());
  for (const char* substitute : label.substitutes) {
    if (fontsHaveTextOf(text)) return;
    gtk_label_set_text(text, substitute);
  }
}

void setFrameLabelColor(GtkWidget* frameLabel, Color color) {
  stateOf(frameLabel).color = color;
  gtk_widget_queue_draw(frameLabel);
}

void setSource(cairo_t* context, Color color) {
  constexpr double full = 255;
  cairo_set_source_rgb(context, color.red / full, color.green / full, color.blue / full);
}

}  // namespace quillon::platform::ui
