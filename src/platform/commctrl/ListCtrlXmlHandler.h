#pragma once
// Dialog templates (XRC) may hold a report list:
//
//   <object class="CListCtrl" name="1030">
//     <liststyle>LVS_REPORT|LVS_SINGLESEL|LVS_SHOWSELALWAYS</liststyle>
//     <exstyle>LVS_EX_FULLROWSELECT|LVS_EX_CHECKBOXES</exstyle>
//     <column width="120">Name</column>
//     <column width="60" format="right">Size</column>
//   </object>
//
// Column headings are message ids, translated when the list is made. An
// unknown style name is reported by wx's resource error and left out.

#include <wx/xrc/xmlres.h>

class ListCtrlXmlHandler : public wxXmlResourceHandler {
public:
  ListCtrlXmlHandler();
  wxObject * DoCreateResource() override;
  bool CanHandle(wxXmlNode * node) override;
};
