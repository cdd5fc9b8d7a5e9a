#pragma once

#include <gtk/gtk.h>

#include <string>

#include "platform/ui/gtk/owners.h"
#include "platform/ui/window.h"

/// A widget for one line of text: a `GtkLabel`, so that screen readers know it, which keeps to its
/// frame and to its colour whatever text, theme and fonts are. Main thread only.
namespace quillon::platform::ui {

/// Makes the widget with the label's font, alignment, size, text and colour; placing it is up to
/// the container, which gets the only (floating) reference.
[[nodiscard]] GtkWidget* makeFrameLabel(const Label& label);

void setFrameLabelText(GtkWidget* frameLabel, const std::string& text);
void setFrameLabelColor(GtkWidget* frameLabel, Color color);

/// The text as the toolkit takes it: valid UTF-8 without NUL, each offending byte replaced by
/// U+FFFD.
[[nodiscard]] OwnedText displayText(const std::string& text);

/// Makes this the source that everything is drawn with.
void setSource(cairo_t* context, Color color);

}  // namespace quillon::platform::ui
