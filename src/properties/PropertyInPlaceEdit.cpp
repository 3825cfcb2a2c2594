#include "properties/PropertyInPlaceEdit.h"

#include <wx/weakref.h>

#include "platform/WindowMessage.h"
#include "properties/PropertyInPlaceEntry.h"
#include "properties/PropertyInPlaceKeys.h"
#include "properties/PropertyInPlaceLayout.h"
#include "properties/PropertyInPlaceMessages.h"

namespace {

constexpr int kEditId = 1;

wxRect ToWxRect(RECT const & r) {
  return wxRect(r.left, r.top, r.right - r.left, r.bottom - r.top);
}

RECT EditRectIn(wxWindow const & parent, RECT const & cell) {
  return PropertyInPlaceLayout::EditRect(cell, PropertyInPlaceLayout::TextHeight(parent));
}

}  // namespace

PropertyInPlaceEdit::PropertyInPlaceEdit(wxWindow * parent, RECT const & rect,
                                         wxString const & text, unsigned long style,
                                         ValidateFunction validate, void * context)
    : mValidate(validate), mContext(context), mStyle(style) {
  wxRect const place = ToWxRect(EditRectIn(*parent, rect));
  // No frame: GTK's entry then draws no border or padding and fits the
  // text's height, as the cell wants. Tab and Return need no styles of
  // their own (they cost a third of the making): the char hook takes them
  // before GTK could.
  Create(parent, kEditId, text, place.GetPosition(), place.GetSize(), wxBORDER_NONE);
  if ((style & kReadOnlyStyle) != 0) SetEditable(false);
  mStartText = text;
  KeepCaretOnFocus(*this);
  Bind(wxEVT_CHAR_HOOK, &PropertyInPlaceEdit::OnCharHook, this);
  Bind(wxEVT_CHAR, &PropertyInPlaceEdit::OnChar, this);
  Bind(wxEVT_TEXT, &PropertyInPlaceEdit::OnText, this);
  Bind(wxEVT_KILL_FOCUS, &PropertyInPlaceEdit::OnKillFocus, this);
}

PropertyInPlaceEdit * PropertyInPlaceEdit::CreateInPlaceControl(wchar_t const * text,
                                                                wxWindow * parent, RECT rect,
                                                                unsigned long style,
                                                                ValidateFunction validate,
                                                                void * context) {
  return new PropertyInPlaceEdit(parent, rect, text == nullptr ? L"" : text, style, validate,
                                 context);
}

void PropertyInPlaceEdit::SetText(wchar_t const * text) {
  mStartText = text == nullptr ? L"" : text;
  ChangeValue(mStartText);
  SetInsertionPointEnd();
  mChanged = false;
}

void PropertyInPlaceEdit::MoveControl(RECT const & rect) {
  SetSize(ToWxRect(EditRectIn(*GetParent(), rect)));
}

bool PropertyInPlaceEdit::Commit() {
  if (!mChanged || mCommitting) return false;
  mCommitting = true;
  // The owner may end the editor while it takes the value.
  wxWeakRef<PropertyInPlaceEdit> const alive(this);
  if (mValidate != nullptr) mValidate(this, mContext);
  if (alive) ProcessData();
  if (alive) {
    mChanged = false;
    mCommitting = false;
  }
  return true;
}

void PropertyInPlaceEdit::ProcessData() {
  SendWindowMessage(mOwner != nullptr ? mOwner : GetParent(), kInPlaceDataChanged, 0, 0);
}

void PropertyInPlaceEdit::OnCharHook(wxKeyEvent & event) {
  InPlaceKeyAction const action = InPlaceKeyActionFor(event.GetKeyCode());
  if (action == InPlaceKeyAction::None) {
    event.Skip();
    return;
  }
  // Taken here, so that no dialog around closes or presses its default
  // button. The list may end this editor as it takes the value.
  wxWindow * const list = GetParent();
  wxWeakRef<wxWindow> const listAlive(list);
  Commit();
  if (listAlive) HandKeyToList(*list, event, action);
}

void PropertyInPlaceEdit::OnChar(wxKeyEvent & event) {
  int const key = event.GetKeyCode();
  bool const typed = key >= WXK_SPACE && key != WXK_DELETE && key < WXK_START;
  bool const digit = event.GetUnicodeKey() >= '0' && event.GetUnicodeKey() <= '9';
  if ((mStyle & kNumberStyle) != 0 && typed && !digit && !event.ControlDown()) return;
  event.Skip();
}

void PropertyInPlaceEdit::OnText(wxCommandEvent & event) {
  mChanged = true;
  event.Skip();
}

void PropertyInPlaceEdit::OnKillFocus(wxFocusEvent & event) {
  event.Skip();
  Commit();
}
