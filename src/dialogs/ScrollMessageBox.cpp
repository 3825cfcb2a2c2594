#include "dialogs/ScrollMessageBox.h"

#include <gtk/gtk.h>

#include <string>

#include <wx/artprov.h>
#include <wx/button.h>
#include <wx/statbmp.h>
#include <wx/textctrl.h>

#include "dialogs/DialogTitle.h"
#include "dialogs/ScrollingText.h"
#include "platform/ResourceModule.h"
#include "platform/WinUser.h"

namespace {

constexpr unsigned int kKindMask = 0x0F;
constexpr unsigned int kIconMask = 0xF0;

// The kinds that get the warning icon when the caller chose none.
bool TakesDefaultIcon(unsigned int type) {
  unsigned int const kind = type & kKindMask;
  return (type & kIconMask) == 0 &&
         (kind == MB_OK || kind == MB_OKCANCEL || kind == MB_YESNOCANCEL || kind == MB_YESNO);
}

// Pango lays a paragraph out as a whole, and the text view does it before
// it can tell whether the text fits: a megabyte without a line end would
// hold the dialog for many seconds. Lines this long are cut into pieces;
// the view still wraps each piece at the window's width.
constexpr size_t kLongestLine = 1024;

wxString WithOverlongLinesCut(wxString const & text) {
  std::wstring const & in = text.ToStdWstring();
  std::wstring out;
  out.reserve(in.size() + in.size() / kLongestLine * 2);
  size_t lineLength = 0;
  for (wchar_t const c : in) {
    if (c == L'\n') {
      lineLength = 0;
    } else if (lineLength == kLongestLine) {
      out += L"\r\n";
      lineLength = 1;
    } else {
      ++lineLength;
    }
    out += c;
  }
  return wxString(out);
}

void MoveTo(wxWindow * control, wxWindow const * place) {
  if (control != nullptr && place != nullptr) control->Move(place->GetPosition());
}

void MoveBy(wxWindow * control, wxPoint const & offset) {
  if (control != nullptr) control->Move(control->GetPosition() + offset);
}

void ShowButton(wxWindow * control, bool show) {
  if (control != nullptr) control->Show(show);
}

}  // namespace

ScrollMessageBox::ScrollMessageBox(wchar_t const * text, unsigned int type, wchar_t const * caption,
                                   wxWindow * parent)
    : VxDialog(kTemplate, parent != nullptr ? parent : GetDialogParent()),
      mText(WithCrLfLineEnds(text)),
      mType(TakesDefaultIcon(type) ? type + MB_ICONEXCLAMATION : type),
      mCaption(caption != nullptr ? caption : L"") {}

bool ScrollMessageBox::OnInitDialog() {
  bool const result = VxDialog::OnInitDialog();
  SetTitle(TitleOrApplicationName(mCaption));
  ShowIcon();
  ShowScrollingText(GetDlgItem(kTextId), WithOverlongLinesCut(mText));
  LayOutButtons();
  ShowScrollBarWhenNeeded();
  AddAnchor(kIconId, TOP_LEFT);
  AddAnchor(kTextId, TOP_LEFT, BOTTOM_RIGHT);
  for (int id : {static_cast<int>(IDOK), static_cast<int>(IDCANCEL), static_cast<int>(IDYES),
                 static_cast<int>(IDNO)})
    AddAnchor(id, BOTTOM_RIGHT);
  for (int id : {IDYES, IDNO}) Bind(wxEVT_BUTTON, &ScrollMessageBox::OnAnswerButton, this, id);
  return result;
}

void ScrollMessageBox::ShowIcon() {
  auto * icon = dynamic_cast<wxStaticBitmap *>(GetDlgItem(kIconId));
  if (icon == nullptr) return;
  wxSize const size = icon->GetSize();
  wxArtID art;
  switch (mType & kIconMask) {
    case MB_ICONHAND: art = wxART_ERROR; break;
    case MB_ICONEXCLAMATION: art = wxART_WARNING; break;
    case MB_ICONASTERISK: art = wxART_INFORMATION; break;
    default: icon->Hide(); return;
  }
  icon->SetBitmap(wxArtProvider::GetBitmap(art, wxART_MESSAGE_BOX, size));
  icon->SetSize(size);
}

// The template shows OK alone; the other kinds take the places of Yes and
// No, or a row of three that starts at the mark.
void ScrollMessageBox::LayOutButtons() {
  wxWindow * ok = GetDlgItem(IDOK);
  wxWindow * cancel = GetDlgItem(IDCANCEL);
  wxWindow * yes = GetDlgItem(IDYES);
  wxWindow * no = GetDlgItem(IDNO);
  wxWindow * focus = ok;
  switch (mType & kKindMask) {
    case MB_OKCANCEL:
      MoveTo(ok, yes);
      MoveTo(cancel, no);
      ShowButton(cancel, true);
      break;
    case MB_YESNO:
      ShowButton(ok, false);
      ShowButton(yes, true);
      ShowButton(no, true);
      focus = yes;
      break;
    case MB_YESNOCANCEL: {
      ShowButton(ok, false);
      wxWindow const * mark = GetDlgItem(kThreeButtonMarkId);
      if (yes != nullptr && mark != nullptr) {
        wxPoint const offset = mark->GetPosition() - yes->GetPosition();
        for (wxWindow * button : {yes, no, cancel}) MoveBy(button, offset);
      }
      for (wxWindow * button : {yes, no, cancel}) ShowButton(button, true);
      focus = yes;
      break;
    }
    default: break;
  }
  if (auto * button = dynamic_cast<wxButton *>(focus)) {
    button->SetDefault();
    button->SetFocus();
  }
}

// GTK decides at every allocation, that is at start and on every size
// change, whether the text fits: the vertical bar is there only when it
// does not. The text wraps, so it never needs a horizontal one. A classic
// bar rather than an overlay, so that a reader sees there is more.
void ScrollMessageBox::ShowScrollBarWhenNeeded() {
  wxWindow * text = GetDlgItem(kTextId);
  if (text == nullptr) return;
  GtkWidget * scrolled = text->GetHandle();
  if (scrolled == nullptr || !GTK_IS_SCROLLED_WINDOW(scrolled)) return;
  gtk_scrolled_window_set_policy(GTK_SCROLLED_WINDOW(scrolled), GTK_POLICY_NEVER,
                                 GTK_POLICY_AUTOMATIC);
  gtk_scrolled_window_set_overlay_scrolling(GTK_SCROLLED_WINDOW(scrolled), FALSE);
}

void ScrollMessageBox::OnAnswerButton(wxCommandEvent & event) {
  EndDialog(event.GetId() == IDYES ? IDYES : IDNO);
}

int VxScrollMessageBox(wchar_t const * text, unsigned int type, wchar_t const * caption) {
  ScrollMessageBox box(text, type, caption);
  return box.DoModal();
}

int VxScrollMessageBox(unsigned int textId, unsigned int type, wchar_t const * caption) {
  std::wstring const text = LoadResourceString(textId).ToStdWstring();
  return VxScrollMessageBox(text.c_str(), type, caption);
}
