#include "properties/PropertyItemString.h"

#include <wx/textctrl.h>

#include "properties/EditorCaret.h"
#include "properties/PropertyInPlaceEdit.h"

PropertyItemString::PropertyItemString(wchar_t const * name, unsigned id,
                                       wchar_t const * description)
    : PropertyItem(name, id, description) {}

PropertyItemString::PropertyItemString(unsigned nameId, unsigned id, unsigned descriptionId)
    : PropertyItem(nameId, id, descriptionId) {}

void PropertyItemString::DrawValue(wxDC & dc, RECT rect) { DrawValueText(dc, rect, mText); }

wxWindow * PropertyItemString::CreateInPlaceControl(wxWindow * parent, RECT rect) {
  auto * edit =
      PropertyInPlaceEdit::CreateInPlaceControl(mText.wc_str(), parent, rect, 0, nullptr, nullptr);
  ReadyForTyping(edit);
  return edit;
}

void PropertyItemString::SetData(wxWindow * control) {
  if (auto * entry = dynamic_cast<wxTextEntry *>(control)) mText = entry->GetValue();
}
