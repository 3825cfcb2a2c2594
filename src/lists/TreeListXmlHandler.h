#pragma once
// The window class "VXTREELISTCTRL" in dialog templates:
//
//   <object class="VXTREELISTCTRL" name="1040">
//     <pos>7,7</pos><size>300,200</size>
//   </object>
//
// builds a plain placeholder window with that id and rectangle; the dialog
// then hands it to VxTreeListCtrl::SubclassDlgItem, which takes its place.
// Registering the class (as every tree list does when it is constructed)
// adds the handler to the templates of every resource module, once a
// process.

#include <wx/xrc/xmlres.h>

extern wchar_t const kTreeListWindowClass[];

class TreeListXmlHandler : public wxXmlResourceHandler {
public:
  wxObject * DoCreateResource() override;
  bool CanHandle(wxXmlNode * node) override;
};

// True once the class is registered (GetClassInfo).
bool IsTreeListWindowClassRegistered();
// Registers the class when it is not yet; true afterwards.
bool RegisterTreeListWindowClass();
