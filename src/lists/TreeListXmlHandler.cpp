#include "lists/TreeListXmlHandler.h"

#include <wx/window.h>

#include "platform/ResourceModule.h"

wchar_t const kTreeListWindowClass[] = L"VXTREELISTCTRL";

namespace {

bool gRegistered = false;

wxXmlResourceHandler * MakeHandler() { return new TreeListXmlHandler; }

}  // namespace

wxObject * TreeListXmlHandler::DoCreateResource() {
  auto * placeholder = new wxWindow(m_parentAsWindow, GetID(), GetPosition(), GetSize(),
                                    wxBORDER_NONE, kTreeListWindowClass);
  SetupWindow(placeholder);
  return placeholder;
}

bool TreeListXmlHandler::CanHandle(wxXmlNode * node) {
  return IsOfClass(node, kTreeListWindowClass);
}

bool IsTreeListWindowClassRegistered() { return gRegistered; }

bool RegisterTreeListWindowClass() {
  if (gRegistered) return true;
  AddDialogTemplateHandler(&MakeHandler);
  gRegistered = true;
  return true;
}
