#include "properties/PropertyItemNumber.h"

#include <wx/textctrl.h>

#include "lists/InfoTipWnd.h"
#include "properties/EditorCaret.h"
#include "properties/PropertyInPlaceEdit.h"
#include "utl/NumberTakeBack.h"
#include "utl/Translation.h"
#include "utl/VxString.h"

namespace {

constexpr int kOutOfRangeTipMilliseconds = 3000;

// Shows `text` in the editor as its new start, so the list reads it back
// unchanged.
void PutBack(wxWindow * control, wxString const & text) {
  if (auto * edit = dynamic_cast<PropertyInPlaceEdit *>(control))
    edit->SetText(text.wc_str());
  else if (auto * entry = dynamic_cast<wxTextEntry *>(control))
    entry->ChangeValue(text);
}

void ShowOutOfRange(wxWindow * control) {
  wxPoint const below = control->ClientToScreen(wxPoint(0, control->GetClientSize().y));
  wxString const text = vx3::Tr("Value out of range");
  InfoTipMessageBox(control->GetParent(), &below, text.wc_str(), kOutOfRangeTipMilliseconds);
}

}  // namespace

PropertyItemNumber::PropertyItemNumber(wchar_t const * name, unsigned id,
                                       wchar_t const * description)
    : PropertyItem(name, id, description) {}

PropertyItemNumber::PropertyItemNumber(unsigned nameId, unsigned id, unsigned descriptionId)
    : PropertyItem(nameId, id, descriptionId) {}

wxString PropertyItemNumber::FormatValue() const { return wxString::Format(L"%d", mValue); }

void PropertyItemNumber::DrawValue(wxDC & dc, RECT rect) { DrawValueText(dc, rect, FormatValue()); }

wxWindow * PropertyItemNumber::CreateInPlaceControl(wxWindow * parent, RECT rect) {
  auto * edit = PropertyInPlaceEdit::CreateInPlaceControl(
      FormatValue().wc_str(), parent, rect, PropertyInPlaceEdit::kNumberStyle, nullptr, nullptr);
  ReadyForTyping(edit);
  return edit;
}

void PropertyItemNumber::SetData(wxWindow * control) {
  auto * entry = dynamic_cast<wxTextEntry *>(control);
  if (entry == nullptr) return;
  int const value = TakeBackNumber(entry->GetValue().wc_str());
  if (IsSaturatedNumber(value)) {
    ShowOutOfRange(control);
    PutBack(control, FormatValue());
    return;
  }
  mValue = value;
}

PropertyItemNegNumber::PropertyItemNegNumber(wchar_t const * name, unsigned id,
                                             wchar_t const * description)
    : PropertyItemNumber(name, id, description) {}

PropertyItemNegNumber::PropertyItemNegNumber(unsigned nameId, unsigned id, unsigned descriptionId)
    : PropertyItemNumber(nameId, id, descriptionId) {}

wxWindow * PropertyItemNegNumber::CreateInPlaceControl(wxWindow * parent, RECT rect) {
  auto * edit = PropertyInPlaceEdit::CreateInPlaceControl(
      FormatValue().wc_str(), parent, rect, 0, &PropertyItemNegNumber::ValidateFunc, this);
  ReadyForTyping(edit);
  return edit;
}

void PropertyItemNegNumber::ValidateFunc(PropertyInPlaceEdit * edit, void * context) {
  auto const * item = static_cast<PropertyItemNegNumber const *>(context);
  if (edit == nullptr || item == nullptr) return;
  int value = 0;
  if (!VxString::ToInt(edit->GetValue().wc_str(), value))
    edit->SetText(item->FormatValue().wc_str());
}
