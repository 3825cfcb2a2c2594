#include "platform/commctrl/ListCtrlXmlHandler.h"

#include <wx/xml/xml.h>

#include "platform/commctrl/CListCtrl.h"
#include "utl/Translation.h"

ListCtrlXmlHandler::ListCtrlXmlHandler() {
  XRC_ADD_STYLE(LVS_REPORT);
  XRC_ADD_STYLE(LVS_SINGLESEL);
  XRC_ADD_STYLE(LVS_SHOWSELALWAYS);
  XRC_ADD_STYLE(LVS_SORTASCENDING);
  XRC_ADD_STYLE(LVS_SORTDESCENDING);
  XRC_ADD_STYLE(LVS_SHAREIMAGELISTS);
  XRC_ADD_STYLE(LVS_NOLABELWRAP);
  XRC_ADD_STYLE(LVS_EDITLABELS);
  XRC_ADD_STYLE(LVS_OWNERDATA);
  XRC_ADD_STYLE(LVS_NOSCROLL);
  XRC_ADD_STYLE(LVS_NOCOLUMNHEADER);
  XRC_ADD_STYLE(LVS_NOSORTHEADER);
  XRC_ADD_STYLE(LVS_ALIGNLEFT);
  XRC_ADD_STYLE(LVS_EX_GRIDLINES);
  XRC_ADD_STYLE(LVS_EX_SUBITEMIMAGES);
  XRC_ADD_STYLE(LVS_EX_CHECKBOXES);
  XRC_ADD_STYLE(LVS_EX_TRACKSELECT);
  XRC_ADD_STYLE(LVS_EX_HEADERDRAGDROP);
  XRC_ADD_STYLE(LVS_EX_FULLROWSELECT);
  XRC_ADD_STYLE(LVS_EX_ONECLICKACTIVATE);
  XRC_ADD_STYLE(LVS_EX_TWOCLICKACTIVATE);
  XRC_ADD_STYLE(LVS_EX_INFOTIP);
  XRC_ADD_STYLE(LVS_EX_LABELTIP);
  XRC_ADD_STYLE(LVS_EX_DOUBLEBUFFER);
  AddWindowStyles();
}

bool ListCtrlXmlHandler::CanHandle(wxXmlNode * node) { return IsOfClass(node, "CListCtrl"); }

wxObject * ListCtrlXmlHandler::DoCreateResource() {
  XRC_MAKE_INSTANCE(list, CListCtrl)
  auto const listStyle = static_cast<DWORD>(GetStyle("liststyle", LVS_REPORT));
  list->Create(m_parentAsWindow, GetID(), GetPosition(), GetSize(), listStyle,
               GetStyle("style", wxBORDER_THEME));
  SetupWindow(list);
  list->SetExtendedStyle(static_cast<DWORD>(GetStyle("exstyle", 0)));

  int column = 0;
  for (wxXmlNode * child = m_node->GetChildren(); child != nullptr; child = child->GetNext()) {
    if (child->GetType() != wxXML_ELEMENT_NODE || child->GetName() != "column") continue;
    wxString const heading = child->GetNodeContent().Strip(wxString::both);
    long width = -1;
    if (!child->GetAttribute("width").ToLong(&width) || width < 0 || width > 100000) width = -1;
    wxString const format = child->GetAttribute("format", "left");
    int const fmt = format == "right"    ? LVCFMT_RIGHT
                    : format == "center" ? LVCFMT_CENTER
                                         : LVCFMT_LEFT;
    wxString const shown = heading.empty() ? heading : wxString(vx3::Tr(heading.utf8_str().data()));
    list->InsertColumn(column++, shown, fmt, static_cast<int>(width));
  }
  return list;
}
