#pragma once

#include <gtk/gtk.h>

#include <string_view>

#include "platform/ui/window.h"

/// A widget for one line of text: a `GtkLabel`, so that screen readers know it, which keeps to its
/// frame and to its colour whatever text, theme and fonts are. Main thread only.
namespace quillon::platform::ui {

/// Makes the widget with the label's font, alignment, size, text and colour; placing it is up to
/// the container, which gets the only (floating) reference.
[[nodiscard]] GtkWidget* makeFrameLabel(const Label& label);

/// Shows the label's text, or one of its substitutes if the fonts lack a character of it.
void setFrameLabelText(GtkWidget* frameLabel, const Label& label);
void setFrameLabelColor(GtkWidget* frameLabel, Color color);

/// Makes this the source that everything is drawn with.
void setSource(cairo_t* context, Color color);

}  // namespace quillon::platform::ui
