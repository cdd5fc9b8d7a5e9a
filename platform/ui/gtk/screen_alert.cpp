#include "platform/ui/gtk/screen_alert.h"

#include "platform/ui/gtk/frame_label.h"
#include "platform/ui/gtk/owners.h"
#include "platform/ui/gtk/window_manner.h"

namespace quillon::platform::ui {
namespace {

/// Keeps a long text on the screen: it breaks anywhere, as paths have no blanks, and ends with an
/// ellipsis after so many lines.
void boundText(GtkWidget* label, void*) {
  constexpr int mostLines = 16;
  auto* const text = GTK_LABEL(label);
  gtk_label_set_line_wrap_mode(text, PANGO_WRAP_WORD_CHAR);
  gtk_label_set_lines(text, mostLines);
  gtk_label_set_ellipsize(text, PANGO_ELLIPSIZE_END);
}

OwnedTopLevel buildAlert(const Alert& alert, ActivationPolicy policy) {
  constexpr int topMargin = 12;
  const OwnedText message = displayText(alert.messageText);
  const OwnedText informative = displayText(alert.informativeText);
  GtkWidget* const dialog = gtk_message_dialog_new(nullptr, GTK_DIALOG_MODAL, GTK_MESSAGE_ERROR,
                                                   GTK_BUTTONS_NONE, "%s", message.get());
  auto* const messageDialog = GTK_MESSAGE_DIALOG(dialog);
  gtk_message_dialog_format_secondary_text(messageDialog, "%s", informative.get());
  GtkWidget* const texts = gtk_message_dialog_get_message_area(messageDialog);
  gtk_widget_set_margin_top(texts, topMargin);
  gtk_container_foreach(GTK_CONTAINER(texts), boundText, nullptr);
  auto* const window = GTK_WINDOW(dialog);
  gtk_window_set_title(window, message.get());
  gtk_window_set_keep_above(window, TRUE);
  gtk_window_set_position(window, GTK_WIN_POS_CENTER);
  applyManner(window, policy);
  return OwnedTopLevel(dialog);
}

}  // namespace

void runAlert(const Alert& alert, ActivationPolicy policy) {
  const OwnedTopLevel topLevel = buildAlert(alert, policy);
  auto* const dialog = GTK_DIALOG(topLevel.get());
  GtkWidget* const button =
      gtk_dialog_add_button(dialog, displayText(alert.buttonTitle).get(), GTK_RESPONSE_OK);
  gtk_dialog_set_default_response(dialog, GTK_RESPONSE_OK);
  gtk_widget_grab_focus(button);
  gtk_window_present(GTK_WINDOW(dialog));
  gtk_dialog_run(dialog);
}

}  // namespace quillon::platform::ui
