#include "properties/VxPropertyPage.h"

#include <string>

#include <wx/menu.h>
#include <wx/utils.h>

#include "html/VxHtmlHelp.h"
#include "platform/ResourceModule.h"
#include "properties/BasePropertyPageHelper.h"
#include "properties/VxPropertySheet.h"
#include "utl/Log.h"

namespace {

// The page's window: an empty panel the template fills at first activation,
// keeping its anchored controls in place. The page stands in front of it as
// its first event handler while both exist.
class PageWindow : public wxPanel, public CResizableLayout {
public:
  PageWindow(wxWindow * book, VxPropertyPage * page)
      : wxPanel(book, wxID_ANY), CResizableLayout(this), mPage(page) {
    Bind(wxEVT_SIZE, [this](wxSizeEvent & event) {
      ArrangeLayout();
      event.Skip();
    });
    PushEventHandler(mPage);
  }
  PageWindow(PageWindow const &) = delete;
  PageWindow & operator=(PageWindow const &) = delete;
  ~PageWindow() override { ReleasePage(); }

  // Takes the page out of the window's handler chain (before either goes).
  void ReleasePage() {
    if (mPage == nullptr) return;
    RemoveEventHandler(mPage);
    mPage = nullptr;
  }

private:
  VxPropertyPage * mPage;
};

void EnableMenuItems(wxMenu & menu, std::set<int> const & commands) {
  for (wxMenuItem * item : menu.GetMenuItems()) {
    if (item->IsSeparator()) continue;
    if (wxMenu * sub = item->GetSubMenu()) {
      EnableMenuItems(*sub, commands);
      continue;
    }
    item->Enable(commands.count(item->GetId()) != 0);
  }
}

}  // namespace

VxPropertyPage::VxPropertyPage(unsigned templateId, unsigned captionId,
                               BasePropertyPageHelper * helper, unsigned helpTopic)
    : mTemplateId(templateId), mCaptionId(captionId), mHelpTopic(helpTopic), mHelper(helper) {}

VxPropertyPage::~VxPropertyPage() {
  if (mSheet != nullptr) mSheet->RemovePage(this);
  DestroyPageWindow();
}

void VxPropertyPage::Changed() {
  if (!mChanged && mHelper != nullptr) mHelper->AddUpdate();
  mChanged = true;
  SetModified(true);
}

void VxPropertyPage::Unchanged() {
  if (mChanged && mHelper != nullptr) mHelper->RemoveUpdate();
  mChanged = false;
  SetModified(false);
}

void VxPropertyPage::OnHelp() {
  if (!HasHelp()) return;
  VxHtmlHelp::Instance()->DisplayTopic(static_cast<int>(mHelpTopic));
}

bool VxPropertyPage::IsFirstPage() const {
  return mSheet != nullptr && mSheet->GetPageIndex(this) == 0;
}

wxString VxPropertyPage::GetPageTitle() const { return mPageTitle; }

void VxPropertyPage::SetPageTitle(wchar_t const * title) {
  mPageTitle = title != nullptr ? title : L"";
  if (mSheet != nullptr && mWindow) mSheet->ShowPageTitle(this);
}

void VxPropertyPage::SetWizardCaption(wchar_t const * caption) {
  if (mSheet != nullptr && mSheet->IsWizard() && mSheet->GetHandle() != nullptr)
    mSheet->SetTitle(caption != nullptr ? caption : L"");
}

void VxPropertyPage::SetModified(bool modified) {
  if (mModified == modified) return;
  mModified = modified;
  if (mSheet != nullptr) mSheet->UpdateApplyButton();
}

wxWindow * VxPropertyPage::GetDlgItem(int id) const {
  return mWindow ? mWindow->FindWindow(id) : nullptr;
}

void VxPropertyPage::AddAnchor(int controlId, ANCHOR topLeft, ANCHOR bottomRight) {
  if (CResizableLayout * layout = Layout()) layout->AddAnchor(controlId, topLeft, bottomRight);
}

CResizableLayout * VxPropertyPage::Layout() const {
  return mWindow ? static_cast<PageWindow *>(mWindow.get()) : nullptr;
}

void VxPropertyPage::PopupMenu(wxMenu & menu, wxPoint const & position) {
  if (!mWindow) return;
  if (mUpdateMenuItems) EnableMenuItems(menu, mCommands);
  // wx runs the update-UI handlers (they reach this page) before it shows
  // the menu.
  mWindow->PopupMenu(&menu, position);
}

bool VxPropertyPage::OnInitDialog() {
  bool const filled = UpdateData(false);
  if (!mPageTitle.empty()) SetPageTitle(mPageTitle.wc_str());
  return filled;
}

bool VxPropertyPage::OnSetActive() { return true; }

bool VxPropertyPage::OnKillActive() { return UpdateData(true); }

void VxPropertyPage::OnCancel() { Unchanged(); }

bool VxPropertyPage::OnApply() {
  wxBusyCursor wait;
  if (!mChanged || mHelper == nullptr) {
    OnOK();
  } else if (mHelper->Connected() == 1 && !mHelper->Update()) {
    // The last changed page: the helper applies for all of them.
    return false;
  }
  Unchanged();
  return true;
}

bool VxPropertyPage::OnWizardFinish() { return OnKillActive(); }

wxWindow * VxPropertyPage::CreatePageWindow(wxWindow * parent) {
  DestroyPageWindow();
  mBuilt = false;
  mWindow = new PageWindow(parent, this);
  return mWindow;
}

bool VxPropertyPage::BuildControls() {
  if (mBuilt || !mWindow) return mBuilt;
  mBuilt = true;
  CaptionText();  // reads the template's size
  // Controls take their anchors at the size their places were drawn for.
  wxSize const bookSize = mWindow->GetSize();
  if (mTemplateSize != wxDefaultSize) mWindow->SetSize(mTemplateSize);
  bool loaded = LoadPageTemplate(*mWindow, mTemplateId);
  if (!loaded) {
    Log::WriteMessage("VxPropertyPage", "OnSetActive",
                      "Page template " + std::to_string(mTemplateId) + " cannot be built",
                      Log::Error, false);
  }
  RunGuarded([this] { OnInitDialog(); });
  if (mWindow) {
    mWindow->SetSize(bookSize);
    Layout()->ArrangeLayout();
  }
  return loaded;
}

void VxPropertyPage::DestroyPageWindow() {
  if (!mWindow) return;
  RunGuarded([this] { OnDestroy(); });
  auto * window = static_cast<PageWindow *>(mWindow.get());
  window->ReleasePage();
  mWindow = nullptr;
  mBuilt = false;
  window->Destroy();
}

wxString VxPropertyPage::CaptionText() const {
  if (!mTemplateRead) {
    mTemplateRead = true;
    ReadDialogTemplateFrame(mTemplateId, mTemplateTitle, mTemplateSize);
  }
  if (!mPageTitle.empty()) return mPageTitle;
  if (mCaptionId != 0) {
    wxString const caption = LoadResourceString(mCaptionId);
    if (!caption.empty()) return caption;
  }
  return mTemplateTitle;
}
