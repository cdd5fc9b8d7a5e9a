#include "platform/ui/gtk/screen_alert.h"

#include "platform/ui/display_text.h"
#include "platform/ui/gtk/owners.h"
#include "platform/ui/gtk/window_hints.h"

namespace quillon::platform::ui {
namespace {

constexpr int mostLinesOfParagraph = 5;

/// Limits a paragraph to a number of lines. Lines break at any character, because paths have no
/// spaces. No hyphen is inserted, because it would look like part of the path.
void boundParagraphs(GtkLabel* label) {
  const OwnedAttributes attributes(pango_attr_list_new());
  pango_attr_list_insert(attributes.get(), pango_attr_insert_hyphens_new(FALSE));
  gtk_label_set_attributes(label, attributes.get());
  gtk_label_set_line_wrap_mode(label, PANGO_WRAP_WORD_CHAR);
  gtk_label_set_lines(label, mostLinesOfParagraph);
  gtk_label_set_ellipsize(label, PANGO_ELLIPSIZE_END);
}

OwnedTopLevel buildAlert(const Alert& alert, ActivationPolicy policy) {
  constexpr int topMargin = 12;
  const std::string message = displayText(alert.messageText);
  constexpr std::size_t longestInformation = 4096;
  const std::string informative =
      displayText(firstParagraphs(alert.informativeText), longestInformation);
  GtkWidget* const dialog = gtk_message_dialog_new(nullptr, GTK_DIALOG_MODAL, GTK_MESSAGE_ERROR,
                                                   GTK_BUTTONS_NONE, "%s", message.c_str());
  auto* const messageDialog = GTK_MESSAGE_DIALOG(dialog);
  gtk_message_dialog_format_secondary_text(messageDialog, "%s", informative.c_str());
  GtkWidget* const texts = gtk_message_dialog_get_message_area(messageDialog);
  gtk_widget_set_margin_top(texts, topMargin);
  const OwnedList labels(gtk_container_get_children(GTK_CONTAINER(texts)));
  boundParagraphs(GTK_LABEL(g_list_last(labels.get())->data));
  auto* const window = GTK_WINDOW(dialog);
  gtk_window_set_title(window, message.c_str());
  atk_object_set_name(gtk_widget_get_accessible(dialog), message.c_str());
  gtk_window_set_keep_above(window, TRUE);
  gtk_window_set_position(window, GTK_WIN_POS_CENTER);
  applyWindowHints(window, policy);
  return OwnedTopLevel(dialog);
}

}  // namespace

void runAlert(const Alert& alert, ActivationPolicy policy) {
  const OwnedTopLevel topLevel = buildAlert(alert, policy);
  auto* const dialog = GTK_DIALOG(topLevel.get());
  GtkWidget* const button =
      gtk_dialog_add_button(dialog, displayText(alert.buttonTitle).c_str(), GTK_RESPONSE_OK);
  gtk_dialog_set_default_response(dialog, GTK_RESPONSE_OK);
  gtk_widget_grab_focus(button);
  gtk_window_present(GTK_WINDOW(dialog));
  gtk_dialog_run(dialog);
}

}  // namespace quillon::platform::ui
