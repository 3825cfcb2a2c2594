#include "properties/VxModelessPropertySheet.h"

#include <algorithm>

#include <wx/module.h>

#include "properties/VxPropertiesHandler.h"
#include "properties/VxPropertyPage.h"
#include "utl/Translation.h"

namespace {

VxModelessPropertySheet * gInstance = nullptr;

}  // namespace

VxModelessPropertySheet * VxModelessPropertySheet::Instance() {
  // The check takes the guard's name in the bases for an exception type.
  // NOLINTNEXTLINE(bugprone-throw-keyword-missing)
  if (gInstance == nullptr) gInstance = new VxModelessPropertySheet;
  return gInstance;
}

bool VxModelessPropertySheet::Exists() { return gInstance != nullptr; }

void VxModelessPropertySheet::Release() {
  if (gInstance == nullptr) return;
  gInstance->ChangePropertiesHandler(nullptr);
  // Not Destroy: the object must be gone now, not at the next idle time,
  // which may never come during shutdown.
  delete gInstance;
}

VxModelessPropertySheet::VxModelessPropertySheet()
    : VxPropertySheet(vx3::Tr("Properties dialog title", "Properties").wc_str()) {
  SetKeepModalLayout(true);
}

VxModelessPropertySheet::~VxModelessPropertySheet() {
  // Whoever deletes it (Release, or wx with its windows), Instance makes a
  // new one afterwards.
  if (gInstance == this) gInstance = nullptr;
  mHandler = nullptr;
}

bool VxModelessPropertySheet::OnInitDialog() {
  VxPropertySheet::OnInitDialog();
  EnableSaveRestore(L"WindowPos\\Properties");
  return true;
}

void VxModelessPropertySheet::AddRefCountedPage(VxPropertyPage * page) {
  if (page == nullptr) return;
  page->AddRef();
  if (GetPageIndex(page) >= 0) return;
  if (std::find(mQueued.begin(), mQueued.end(), page) == mQueued.end()) mQueued.push_back(page);
}

void VxModelessPropertySheet::ChangePropertiesHandler(VxPropertiesHandler * handler) {
  bool const visible = GetHandle() != nullptr && IsShown();
  ClearChanged();
  for (int index = 0; index < GetPageCount(); ++index) GetPage(index)->ReleaseRef();
  VxPropertyPage * const previous = GetPageCount() > 0 ? GetActivePage() : nullptr;

  if (handler != nullptr) {
    handler->AddPropertyPages(*this);
    PropertyPageListener::Connect(handler->GetPropertyPageHelper());
  } else {
    PropertyPageListener::Connect(nullptr);
  }

  // Redraw is off while tabs come and go in a shown window, and comes back
  // however this ends (a handler may throw).
  struct Redraw {
    VxModelessPropertySheet & sheet;
    bool frozen = false;
    ~Redraw() {
      sheet.DeferActivation(false);
      if (!frozen) return;
      sheet.Thaw();
      sheet.Refresh();
    }
  } redraw{*this};
  auto freeze = [&] {
    if (!visible || redraw.frozen) return;
    Freeze();
    redraw.frozen = true;
  };
  DeferActivation(true);
  std::vector<VxPropertyPage *> const queued = std::move(mQueued);
  mQueued.clear();
  for (VxPropertyPage * page : queued) {
    freeze();
    AddPage(page);  // puts the page's title on its tab
  }
  for (int index = GetPageCount() - 1; index >= 0; --index) {
    if (GetPage(index)->CountRefs() != 0) continue;
    freeze();
    RemovePage(index);
  }
  DeferActivation(false);

  VxPropertyPage * chosen = handler != nullptr ? handler->ChooseActivePage(previous) : nullptr;
  if (GetPageIndex(chosen) < 0) chosen = GetActivePage();
  if (chosen == nullptr && GetPageCount() > 0) chosen = GetPage(0);
  mHandler = handler;
  if (chosen != nullptr && chosen != GetActivePage()) SetActivePage(chosen);
}

void VxModelessPropertySheet::ListenerUpdate() { ChangePropertiesHandler(mHandler); }

void VxModelessPropertySheet::OnOK() {
  VxPropertySheet::OnOK();
  ReleaseIfHidden();
}

void VxModelessPropertySheet::OnCancel() {
  VxPropertySheet::OnCancel();
  ReleaseIfHidden();
}

void VxModelessPropertySheet::OnClose() {
  VxPropertySheet::OnClose();
  ReleaseIfHidden();
}

void VxModelessPropertySheet::ReleaseIfHidden() {
  // A page that refused to apply keeps the window open with its changes.
  if (!IsShown()) ChangePropertiesHandler(nullptr);
}

namespace {

// wx deletes every top-level window left at shutdown; the Properties window
// goes first, with its pages handed back, while their owners still exist.
class ModelessPropertySheetModule : public wxModule {
public:
  bool OnInit() override { return true; }
  void OnExit() override { VxModelessPropertySheet::Release(); }

private:
  wxDECLARE_DYNAMIC_CLASS(ModelessPropertySheetModule);
};

wxIMPLEMENT_DYNAMIC_CLASS(ModelessPropertySheetModule, wxModule);

}  // namespace
