#include "platform/ResourceMenus.h"

#include <wx/log.h>
#include <wx/menu.h>
#include <wx/mstream.h>
#include <wx/xml/xml.h>
#include <wx/xrc/xh_menu.h>
#include <wx/xrc/xmlres.h>

#include "platform/MenuCommandIds.h"
#include "platform/ResourceModule.h"
#include "utl/Translation.h"

namespace {

// "&Copy\tCtrl+C": the text before the tab is the message id.
wxString TranslatedLabel(wxString const & label) {
  if (label.empty()) return label;
  wxString const text = label.BeforeFirst('\t');
  wxString translated = vx3::Tr(text.utf8_str().data());
  if (label.Find('\t') != wxNOT_FOUND) translated += "\t" + label.AfterFirst('\t');
  return translated;
}

void TranslateMenu(wxMenu & menu) {
  for (wxMenuItem * item : menu.GetMenuItems()) {
    if (item->IsSeparator()) continue;
    item->SetItemLabel(TranslatedLabel(item->GetItemLabel()));
    if (item->GetSubMenu() != nullptr) TranslateMenu(*item->GetSubMenu());
  }
}

// Items are named by their commands; those above what a wx menu takes get
// their stand-in ids (platform/MenuCommandIds.h). False for a command that
// no menu can hold.
bool MapCommandIds(wxXmlNode * node) {
  for (; node != nullptr; node = node->GetNext()) {
    if (node->GetType() != wxXML_ELEMENT_NODE) continue;
    unsigned long command = 0;
    if (node->GetName() == "object" && node->GetAttribute("class") == "wxMenuItem" &&
        node->GetAttribute("name").ToULong(&command)) {
      int const itemId = MenuItemIdFromCommand(static_cast<unsigned>(command));
      if (itemId < 0) return false;
      node->DeleteAttribute("name");
      node->AddAttribute("name", wxString::Format("%d", itemId));
    }
    if (!MapCommandIds(node->GetChildren())) return false;
  }
  return true;
}

// A fresh resource set for one menu document: menus are small and loaded
// when shown, so nothing is kept between loads.
std::unique_ptr<wxXmlResource> MenuResources(std::string const & bytes) {
  auto resources = std::make_unique<wxXmlResource>(0);
  resources->AddHandler(new wxMenuBarXmlHandler);
  resources->AddHandler(new wxMenuXmlHandler);
  wxMemoryInputStream stream(bytes.data(), bytes.size());
  auto document = std::make_unique<wxXmlDocument>();
  wxLogNull quiet;  // a broken document is reported by the null result
  if (!document->Load(stream) || !MapCommandIds(document->GetRoot())) return nullptr;
  resources->LoadDocument(document.release(), "menu");
  return resources;
}

}  // namespace

std::unique_ptr<wxMenuBar> LoadResourceMenuBar(unsigned id) {
  std::string const bytes = LoadResourceBytes(id, RT_MENU);
  if (bytes.empty()) return nullptr;
  std::unique_ptr<wxXmlResource> resources = MenuResources(bytes);
  if (!resources) return nullptr;
  wxString const name = wxString::Format("%u", id);
  wxXmlNode const * node = resources->GetResourceNode(name);
  if (node == nullptr) return nullptr;
  wxLogNull quiet;
  std::unique_ptr<wxMenuBar> bar;
  if (node->GetAttribute("class") == "wxMenuBar") {
    bar.reset(resources->LoadMenuBar(name));
  } else if (wxMenu * menu = resources->LoadMenu(name)) {
    bar = std::make_unique<wxMenuBar>();
    // A bar's menu needs a title; a context menu shows none of it.
    bar->Append(menu, menu->GetTitle().empty() ? name : menu->GetTitle());
  }
  if (!bar) return nullptr;
  for (size_t i = 0; i < bar->GetMenuCount(); ++i) {
    bar->SetMenuLabel(i, TranslatedLabel(bar->GetMenuLabel(i)));
    TranslateMenu(*bar->GetMenu(i));
  }
  return bar;
}

std::unique_ptr<wxMenu> LoadResourcePopupMenu(unsigned id) {
  std::unique_ptr<wxMenuBar> bar = LoadResourceMenuBar(id);
  if (!bar || bar->GetMenuCount() == 0) return nullptr;
  return std::unique_ptr<wxMenu>(bar->Remove(0));
}

bool LoadResourceAccelerators(unsigned id, std::vector<AcceleratorLine> & lines,
                              std::string * error) {
  std::string const bytes = LoadResourceBytes(id, RT_ACCELERATOR);
  std::string reason;
  if (bytes.empty())
    reason = "no accelerator table " + std::to_string(id);
  else if (ParseAcceleratorText(bytes, lines, reason))
    return true;
  if (error != nullptr) *error = reason;
  return false;
}
