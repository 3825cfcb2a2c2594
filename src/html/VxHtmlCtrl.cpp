#include "html/VxHtmlCtrl.h"

#include <wx/sizer.h>
#include <wx/stattext.h>

wxIMPLEMENT_DYNAMIC_CLASS(VxHtmlCtrl, VxHtmlView);

int VxHtmlCtrl::CreateFromStatic(unsigned int id, wxWindow * parent) {
  if (parent == nullptr) return 0;
  auto * placeholder = dynamic_cast<wxStaticText *>(parent->FindWindow(static_cast<int>(id)));
  if (placeholder == nullptr) return 0;
  wxRect const place = placeholder->GetRect();
  placeholder->SetId(wxID_ANY);  // the id passes to the control
  if (!Create(parent, static_cast<wxWindowID>(id), place.GetPosition(), place.GetSize())) {
    placeholder->SetId(static_cast<int>(id));
    return 0;
  }
  if (wxSizer * sizer = placeholder->GetContainingSizer()) sizer->Replace(placeholder, this);
  MoveAfterInTabOrder(placeholder);
  placeholder->Destroy();
  return 1;
}
