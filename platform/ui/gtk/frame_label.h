#pragma once

#include <gtk/gtk.h>

#include <string_view>

#include "platform/ui/window.h"

/// A widget for one line of text. It is a `GtkLabel`, so that screen readers recognise it. It keeps
/// its frame and its colour for every text, theme and font. Main thread only.
namespace quillon::platform::ui {

/// Makes the widget with the label's font, alignment, size, text and colour. The container
/// positions it and gets the only (floating) reference.
[[nodiscard]] GtkWidget* makeFrameLabel(const Label& label);

/// Shows the label's text, or one of its substitutes if the fonts lack a character of the text.
void setFrameLabelText(GtkWidget* frameLabel, const Label& label);
void setFrameLabelColor(GtkWidget* frameLabel, Color color);

/// Sets the colour as the source for all further drawing.
void setSource(cairo_t* context, Color color);

}  // namespace quillon::platform::ui
