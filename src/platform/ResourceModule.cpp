#include "platform/ResourceModule.h"

#include <algorithm>
#include <memory>
#include <mutex>
#include <set>
#include <vector>

#include <wx/anybutton.h>
#include <wx/checkbox.h>
#include <wx/dialog.h>
#include <wx/image.h>
#include <wx/log.h>
#include <wx/mstream.h>
#include <wx/panel.h>
#include <wx/radiobut.h>
#include <wx/statbox.h>
#include <wx/stattext.h>
#include <wx/xml/xml.h>
#include <wx/xrc/xh_dlg.h>
#include <wx/xrc/xmlres.h>

#include "platform/commctrl/ListCtrlXmlHandler.h"
#include "utl/Translation.h"

namespace {

// Style bits the dialog being loaded asks for beyond its template's
// (a resizable border, a maximise box); set around one LoadDialog call.
long gExtraDialogStyle = 0;

// Builds the templates' wxDialog objects. Beside what wx's own handler does,
// it adds the extra style, and it fills a dialog whose window lives on from
// an earlier run (a dialog object runs again after its controls were
// destroyed) with fresh controls instead of creating the window twice.
class TemplateDialogHandler : public wxDialogXmlHandler {
public:
  wxObject * DoCreateResource() override {
    // A property page takes the template's controls into its own panel.
    if (wxDialog * const dialog = wxDynamicCast(m_instance, wxDialog); dialog == nullptr) {
      if (wxPanel * const page = wxDynamicCast(m_instance, wxPanel)) {
        CreateChildren(page);
        return page;
      }
    }
    wxDialog * dialog = wxDynamicCast(m_instance, wxDialog);
    if (dialog == nullptr) dialog = new wxDialog;
    if (dialog->GetHandle() == nullptr) {
      dialog->Create(m_parentAsWindow, GetID(), GetText("title"), wxDefaultPosition, wxDefaultSize,
                     GetStyle("style", wxDEFAULT_DIALOG_STYLE) | gExtraDialogStyle, GetName());
    } else {
      dialog->SetTitle(GetText("title"));
    }
    if (HasParam("size")) dialog->SetClientSize(GetSize("size", dialog));
    if (HasParam("pos")) dialog->Move(GetPosition());
    SetupWindow(dialog);
    CreateChildren(dialog);
    if (GetBool("centered", false)) dialog->Centre();
    return dialog;
  }
};

}  // namespace

// The makers of AddDialogTemplateHandler; GUI thread only, as templates are.
static std::vector<wxXmlResourceHandler * (*)()> & TemplateHandlerMakers() {
  static std::vector<wxXmlResourceHandler * (*)()> makers;
  return makers;
}

class ResourceModule {
public:
  // Gives templates made already the handler of `make` too.
  void AddTemplateHandler(wxXmlResourceHandler * (*make)()) const {
    if (mTemplates) mTemplates->AddHandler(make());
  }

  ResourceModule(ResourceModuleData const & data, ResourceModuleRole role)
      : mData(data), mRole(role) {}

  ResourceModuleData const & Data() const { return mData; }
  ResourceModuleRole Role() const { return mRole; }

  ResourceItem const * FindItem(unsigned type, unsigned id) const {
    ResourceItem const * end = mData.items + mData.itemCount;
    ResourceItem const * found =
        std::lower_bound(mData.items, end, std::make_pair(type, id),
                         [](ResourceItem const & item, std::pair<unsigned, unsigned> key) {
                           return std::make_pair(item.type, item.id) < key;
                         });
    return found != end && found->type == type && found->id == id ? found : nullptr;
  }

  ResourceMessage FindMessage(unsigned id) const {
    ResourceStringItem const * end = mData.strings + mData.stringCount;
    ResourceStringItem const * found = std::lower_bound(
        mData.strings, end, id,
        [](ResourceStringItem const & item, unsigned key) { return item.id < key; });
    if (found == end || found->id != id) return ResourceMessage{nullptr, nullptr};
    return found->message;
  }

  // The module's XRC resource, holding the templates used so far; each
  // template document is parsed on its first use only.
  wxXmlResource & TemplatesWith(ResourceItem const & item) const {
    if (!mTemplates) {
      // Labels are translated by the library (Boost.Locale), not by wx.
      mTemplates = std::make_unique<wxXmlResource>(0);
      mTemplates->InitAllHandlers();
      mTemplates->InsertHandler(new TemplateDialogHandler);
      mTemplates->AddHandler(new ListCtrlXmlHandler);
      for (auto * make : TemplateHandlerMakers()) mTemplates->AddHandler(make());
    }
    if (mLoadedTemplates.insert(item.id).second) {
      wxMemoryInputStream stream(item.data, item.size);
      auto document = std::make_unique<wxXmlDocument>();
      if (document->Load(stream)) {
        wxString const name = wxString::Format("%s/dialogs/%u.xrc", mData.name, item.id);
        mTemplates->LoadDocument(document.release(), name);
      }
    }
    return *mTemplates;
  }

private:
  ResourceModuleData const & mData;
  ResourceModuleRole mRole;
  mutable std::unique_ptr<wxXmlResource> mTemplates;
  mutable std::set<unsigned> mLoadedTemplates;
};

namespace {

struct ResourceChain {
  std::mutex mutex;
  std::vector<std::unique_ptr<ResourceModule>> modules;  // in registration order
  ResourceModule const * application = nullptr;
  ResourceModule const * current = nullptr;  // installed by AfxSetResourceHandle
};

// Never destroyed: modules of other shared objects unregister from their own
// static destructors, in an order nobody controls.
ResourceChain & Chain() {
  static ResourceChain * chain = new ResourceChain;
  return *chain;
}

// Visits the modules in lookup order until `found` holds for one, and
// returns that one (or null). Under the chain's lock: `found` only looks.
template <typename Found>
ResourceModule const * SearchChain(Found const & found) {
  ResourceChain & chain = Chain();
  std::lock_guard<std::mutex> lock(chain.mutex);
  if (chain.current != nullptr && found(*chain.current)) return chain.current;
  if (chain.application != nullptr && chain.application != chain.current &&
      found(*chain.application))
    return chain.application;
  for (auto const & module : chain.modules) {
    if (module.get() == chain.current || module.get() == chain.application) continue;
    if (found(*module)) return module.get();
  }
  return nullptr;
}

ResourceItem const * FindInChain(unsigned type, unsigned id, ResourceModule const ** owner) {
  ResourceItem const * item = nullptr;
  ResourceModule const * module = SearchChain([&](ResourceModule const & candidate) {
    item = candidate.FindItem(type, id);
    return item != nullptr;
  });
  if (owner != nullptr) *owner = module;
  return item;
}

void TranslateLabels(wxWindow & window) {
  for (wxWindow * child : window.GetChildren()) {
    bool const labelled = dynamic_cast<wxStaticText *>(child) != nullptr ||
                          dynamic_cast<wxAnyButton *>(child) != nullptr ||
                          dynamic_cast<wxCheckBox *>(child) != nullptr ||
                          dynamic_cast<wxRadioButton *>(child) != nullptr ||
                          dynamic_cast<wxStaticBox *>(child) != nullptr;
    if (labelled && !child->GetLabel().empty())
      child->SetLabel(vx3::Tr(child->GetLabel().utf8_str().data()));
    TranslateLabels(*child);
  }
}

}  // namespace

HINSTANCE RegisterResourceModule(ResourceModuleData const & data, ResourceModuleRole role) {
  ResourceChain & chain = Chain();
  std::lock_guard<std::mutex> lock(chain.mutex);
  chain.modules.push_back(std::make_unique<ResourceModule>(data, role));
  ResourceModule const * module = chain.modules.back().get();
  if (role == ResourceModuleRole::Application) chain.application = module;
  return module;
}

void UnregisterResourceModule(HINSTANCE module) {
  ResourceChain & chain = Chain();
  std::lock_guard<std::mutex> lock(chain.mutex);
  auto found = std::find_if(chain.modules.begin(), chain.modules.end(),
                            [module](auto const & entry) { return entry.get() == module; });
  if (found == chain.modules.end()) return;
  if (chain.current == module) chain.current = nullptr;
  if (chain.application == module) {
    chain.application = nullptr;
    // An earlier application module, if any, is the application's again.
    for (auto const & entry : chain.modules)
      if (entry.get() != module && entry->Role() == ResourceModuleRole::Application)
        chain.application = entry.get();
  }
  chain.modules.erase(found);
}

HINSTANCE FindResourceModule(char const * name) {
  ResourceChain & chain = Chain();
  std::lock_guard<std::mutex> lock(chain.mutex);
  for (auto const & module : chain.modules)
    if (name != nullptr && std::string(module->Data().name) == name) return module.get();
  return nullptr;
}

HINSTANCE GetApplicationResourceModule() {
  ResourceChain & chain = Chain();
  std::lock_guard<std::mutex> lock(chain.mutex);
  return chain.application;
}

char const * GetResourceModuleName(HINSTANCE module) {
  return module != nullptr ? module->Data().name : "";
}

HINSTANCE AfxGetResourceHandle() {
  ResourceChain & chain = Chain();
  std::lock_guard<std::mutex> lock(chain.mutex);
  return chain.current != nullptr ? chain.current : chain.application;
}

void AfxSetResourceHandle(HINSTANCE module) {
  ResourceChain & chain = Chain();
  std::lock_guard<std::mutex> lock(chain.mutex);
  chain.current = module;
}

ResourceMessage FindResourceMessage(HINSTANCE module, unsigned id) {
  return module != nullptr ? module->FindMessage(id) : ResourceMessage{nullptr, nullptr};
}

std::string LoadResourceBytes(HINSTANCE module, unsigned id, unsigned type) {
  ResourceItem const * item = module != nullptr ? module->FindItem(type, id) : nullptr;
  if (item == nullptr) return std::string();
  return std::string(reinterpret_cast<char const *>(item->data), item->size);
}

ResourceMessage FindResourceMessage(unsigned id) {
  ResourceMessage message{nullptr, nullptr};
  SearchChain([&](ResourceModule const & candidate) {
    message = candidate.FindMessage(id);
    return message.text != nullptr;
  });
  return message;
}

wxString LoadResourceString(unsigned id) {
  ResourceMessage const message = FindResourceMessage(id);
  if (message.text == nullptr) return wxString();
  return message.context != nullptr ? vx3::Tr(message.context, message.text)
                                    : vx3::Tr(message.text);
}

std::string LoadResourceBytes(unsigned id, unsigned type) {
  ResourceItem const * item = FindInChain(type, id, nullptr);
  if (item == nullptr) return std::string();
  return std::string(reinterpret_cast<char const *>(item->data), item->size);
}

wxBitmap LoadResourceBitmap(unsigned id) {
  ResourceItem const * item = FindInChain(RT_BITMAP, id, nullptr);
  if (item == nullptr) return wxBitmap();
  if (wxImage::FindHandler(wxBITMAP_TYPE_PNG) == nullptr) wxImage::AddHandler(new wxPNGHandler);
  wxMemoryInputStream stream(item->data, item->size);
  wxLogNull quiet;  // an undecodable picture is reported by the invalid result
  wxImage image(stream, wxBITMAP_TYPE_PNG);
  return image.IsOk() ? wxBitmap(image) : wxBitmap();
}

bool LoadDialogTemplate(wxDialog & dialog, wxWindow * parent, unsigned templateId,
                        long extraStyle) {
  ResourceModule const * owner = nullptr;
  ResourceItem const * item = FindInChain(RT_DIALOG, templateId, &owner);
  if (item == nullptr) return false;
  wxXmlResource & templates = owner->TemplatesWith(*item);
  gExtraDialogStyle = extraStyle;
  bool const loaded = templates.LoadDialog(&dialog, parent, wxString::Format("%u", templateId));
  gExtraDialogStyle = 0;
  if (!loaded) return false;
  if (!dialog.GetTitle().empty()) dialog.SetTitle(vx3::Tr(dialog.GetTitle().utf8_str().data()));
  TranslateLabels(dialog);
  return true;
}

bool LoadPageTemplate(wxPanel & page, unsigned templateId) {
  ResourceModule const * owner = nullptr;
  ResourceItem const * item = FindInChain(RT_DIALOG, templateId, &owner);
  if (item == nullptr || page.GetHandle() == nullptr) return false;
  wxXmlResource & templates = owner->TemplatesWith(*item);
  if (!templates.LoadObject(&page, page.GetParent(), wxString::Format("%u", templateId),
                            "wxDialog"))
    return false;
  TranslateLabels(page);
  return true;
}

bool ReadDialogTemplateFrame(unsigned templateId, wxString & title, wxSize & size) {
  ResourceModule const * owner = nullptr;
  ResourceItem const * item = FindInChain(RT_DIALOG, templateId, &owner);
  if (item == nullptr) return false;
  wxXmlNode const * node =
      owner->TemplatesWith(*item).GetResourceNode(wxString::Format("%u", templateId));
  if (node == nullptr) return false;
  title.clear();
  size = wxDefaultSize;
  for (wxXmlNode const * child = node->GetChildren(); child != nullptr; child = child->GetNext()) {
    if (child->GetName() == "title") {
      wxString const text = child->GetNodeContent();
      if (!text.empty()) title = vx3::Tr(text.utf8_str().data());
    } else if (child->GetName() == "size") {
      long width = 0;
      long height = 0;
      if (child->GetNodeContent().BeforeFirst(',').ToLong(&width) &&
          child->GetNodeContent().AfterFirst(',').ToLong(&height) && width > 0 && height > 0)
        size = wxSize(static_cast<int>(width), static_cast<int>(height));
    }
  }
  return true;
}

void AddDialogTemplateHandler(wxXmlResourceHandler * (*make)()) {
  TemplateHandlerMakers().push_back(make);
  ResourceChain & chain = Chain();
  std::lock_guard<std::mutex> const lock(chain.mutex);
  for (auto const & module : chain.modules) module->AddTemplateHandler(make);
}

bool LoadPanelTemplate(wxPanel & panel, wxWindow * parent, unsigned templateId) {
  ResourceModule const * owner = nullptr;
  ResourceItem const * item = FindInChain(RT_DIALOG, templateId, &owner);
  if (item == nullptr) return false;
  wxXmlResource & templates = owner->TemplatesWith(*item);
  if (!templates.LoadPanel(&panel, parent, wxString::Format("%u", templateId))) return false;
  TranslateLabels(panel);
  return true;
}
