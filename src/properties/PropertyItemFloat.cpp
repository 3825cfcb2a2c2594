#include "properties/PropertyItemFloat.h"

#include <wx/textctrl.h>

#include "properties/EditorCaret.h"
#include "properties/PropertyInPlaceEdit.h"
#include "utl/VxString.h"

namespace {

// The value that stands for "missing".
constexpr float kMissing = -99.0F;

}  // namespace

PropertyItemFloat::PropertyItemFloat(wchar_t const * name, unsigned id, wchar_t const * description)
    : PropertyItem(name, id, description) {}

PropertyItemFloat::PropertyItemFloat(unsigned nameId, unsigned id, unsigned descriptionId)
    : PropertyItem(nameId, id, descriptionId) {}

wxString PropertyItemFloat::FormatValue() const {
  if (mValue == kMissing) return wxString();
  return VxString::ToString(static_cast<double>(mValue), L"%g", nullptr);
}

void PropertyItemFloat::DrawValue(wxDC & dc, RECT rect) { DrawValueText(dc, rect, FormatValue()); }

wxWindow * PropertyItemFloat::CreateInPlaceControl(wxWindow * parent, RECT rect) {
  auto * edit = PropertyInPlaceEdit::CreateInPlaceControl(FormatValue().wc_str(), parent, rect, 0,
                                                          &PropertyItemFloat::ValidateFunc, this);
  ReadyForTyping(edit);
  return edit;
}

void PropertyItemFloat::SetData(wxWindow * control) {
  auto * entry = dynamic_cast<wxTextEntry *>(control);
  if (entry == nullptr) return;
  float value = 0.0F;
  if (VxString::ToFloat(entry->GetValue().wc_str(), value))
    mValue = value;
  else if (auto * edit = dynamic_cast<PropertyInPlaceEdit *>(control))
    edit->SetText(FormatValue().wc_str());  // the refused text does not linger
}

void PropertyItemFloat::ValidateFunc(PropertyInPlaceEdit * edit, void * context) {
  auto const * item = static_cast<PropertyItemFloat const *>(context);
  if (edit == nullptr || item == nullptr) return;
  float value = 0.0F;
  if (!VxString::ToFloat(edit->GetValue().wc_str(), value))
    edit->SetText(item->FormatValue().wc_str());
}
