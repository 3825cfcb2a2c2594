#include "properties/EditorCaret.h"

#include <wx/textctrl.h>

void ReadyForTyping(wxWindow * edit) {
  if (edit == nullptr) return;
  if (auto * text = dynamic_cast<wxTextCtrl *>(edit)) {
    text->SetInsertionPointEnd();
    text->ShowPosition(text->GetLastPosition());
  }
  edit->SetFocus();
}
