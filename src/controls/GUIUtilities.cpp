#include "controls/GUIUtilities.h"

#include <wx/app.h>
#include <wx/event.h>
#include <wx/mdi.h>
#include <wx/menu.h>

#include "platform/ResourceModule.h"

namespace GUIUtilities {

std::string ReadResource(unsigned int id) { return LoadResourceBytes(id, RT_HTML); }

int GetMDIChildWnds(std::vector<wxMDIChildFrame *> * out, bool visibleOnly) {
  wxWindow * main = wxTheApp != nullptr ? wxTheApp->GetTopWindow() : nullptr;
  auto * parent = wxDynamicCast(main, wxMDIParentFrame);
  if (parent == nullptr || parent->GetClientWindow() == nullptr) return 0;
  int count = 0;
  for (wxWindow * window : parent->GetClientWindow()->GetChildren()) {
    auto * child = wxDynamicCast(window, wxMDIChildFrame);
    if (child == nullptr || (visibleOnly && !child->IsShown())) continue;
    if (out != nullptr) out->push_back(child);
    ++count;
  }
  return count;
}

namespace {

// Asks `target` about `commandId` and applies what its handler set to
// `item`, which is the command's own item or a sub-menu's item.
void UpdateItem(wxWindow & target, wxMenuItem & item, int commandId) {
  wxUpdateUIEvent event{commandId};
  event.SetEventObject(&target);
  target.ProcessWindowEvent(event);
  if (event.GetSetEnabled()) item.Enable(event.GetEnabled());
  if (event.GetSetChecked() && item.IsCheckable()) item.Check(event.GetChecked());
  if (event.GetSetText() && !item.IsSubMenu()) item.SetItemLabel(event.GetText());
}

}  // namespace

void EnableMenu(wxWindow * target, wxMenu * menu) {
  if (target == nullptr || menu == nullptr) return;
  for (wxMenuItem * item : menu->GetMenuItems()) {
    if (item->IsSeparator()) continue;
    if (wxMenu * sub = item->GetSubMenu()) {
      wxMenuItemList const & subItems = sub->GetMenuItems();
      if (!subItems.empty()) {
        wxMenuItem const * first = subItems.front();
        if (!first->IsSeparator() && first->GetId() != 0)
          UpdateItem(*target, *item, first->GetId());
      }
      EnableMenu(target, sub);
      continue;
    }
    UpdateItem(*target, *item, item->GetId());
  }
}

wxString TextPart(wxString const & text, bool afterLineFeed) {
  size_t const lineFeed = text.find('\n');
  if (lineFeed == wxString::npos) return text;
  return afterLineFeed ? text.substr(lineFeed + 1) : text.substr(0, lineFeed);
}

wxString LoadStringPart(unsigned int id, bool afterLineFeed) {
  return TextPart(LoadResourceString(id), afterLineFeed);
}

}  // namespace GUIUtilities
