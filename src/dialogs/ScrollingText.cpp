#include "dialogs/ScrollingText.h"

#include <wx/textctrl.h>

#ifdef __WXGTK__
#include <gtk/gtk.h>
#endif

wxString WithCrLfLineEnds(wchar_t const * text) {
  wxString result;
  if (text == nullptr) return result;
  wchar_t previous = L'\0';
  for (wchar_t const * c = text; *c != L'\0'; ++c) {
    if (*c == L'\n' && previous != L'\r') result += L'\r';
    result += *c;
    previous = *c;
  }
  return result;
}

void ShowScrollingText(wxWindow * control, wxString const & text) {
  auto * edit = wxDynamicCast(control, wxTextCtrl);
  if (edit == nullptr) return;
  edit->ChangeValue(text);
#ifdef __WXGTK__
  // wx sets margins on single-line entries only; the multi-line control is a
  // text view inside a scrolled window. Without a caret the arrow keys
  // scroll the read-only text.
  if (GtkWidget * scrolled = static_cast<GtkWidget *>(edit->GetHandle());
      scrolled != nullptr && GTK_IS_BIN(scrolled)) {
    GtkWidget * view = gtk_bin_get_child(GTK_BIN(scrolled));
    if (view != nullptr && GTK_IS_TEXT_VIEW(view)) {
      int const margin = edit->FromDIP(4);
      gtk_text_view_set_left_margin(GTK_TEXT_VIEW(view), margin);
      gtk_text_view_set_right_margin(GTK_TEXT_VIEW(view), margin);
      gtk_text_view_set_top_margin(GTK_TEXT_VIEW(view), edit->FromDIP(2));
      gtk_text_view_set_cursor_visible(GTK_TEXT_VIEW(view), FALSE);
    }
  }
#endif
}
