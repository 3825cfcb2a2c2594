#include "properties/VxPropertySheet.h"

#include <algorithm>
#include <string>

#include <wx/button.h>
#include <wx/notebook.h>
#include <wx/simplebook.h>
#include <wx/sizer.h>

#include "frame/AppProfile.h"
#include "html/VxHtmlHelp.h"
#include "platform/CInvalidArgException.h"
#include "platform/ResourceModule.h"
#include "platform/RunningApplication.h"
#include "platform/WinUser.h"
#include "properties/VxPropertyPage.h"
#include "settings/TopLevelWindowPlacement.h"
#include "settings/WindowPlacement.h"
#include "utl/Translation.h"

namespace {

// The profile entry of a sheet's placement, under its save name.
char const kPlacementEntry[] = "WindowPlacement";
// Between the buttons, and around the book and the button row.
constexpr int kButtonGap = 6;

}  // namespace

VxPropertySheet::VxPropertySheet(unsigned captionId, wxWindow * parent, unsigned selectPage)
    : VxPropertySheet(LoadResourceString(captionId).wc_str(), parent, selectPage) {}

VxPropertySheet::VxPropertySheet(wchar_t const * caption, wxWindow * parent, unsigned selectPage)
    : mCaption(caption != nullptr ? caption : L""), mParent(parent), mSelectPage(selectPage) {
  Bind(wxEVT_BUTTON, &VxPropertySheet::OnButton, this);
  Bind(wxEVT_CHAR_HOOK, &VxPropertySheet::OnCharHook, this);
  Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent &) { OnClose(); });
  Bind(wxEVT_BOOKCTRL_PAGE_CHANGING, &VxPropertySheet::OnPageChanging, this);
  Bind(wxEVT_BOOKCTRL_PAGE_CHANGED, [this](wxBookCtrlEvent & event) {
    if (event.GetEventObject() != mBook || mSwitching) return;
    if (event.GetSelection() != mActive) Activate(event.GetSelection());
  });
  Bind(
      wxEVT_UPDATE_UI,
      [this](wxUpdateUIEvent & event) {
        VxPropertyPage const * page = GetActivePage();
        event.Enable(page != nullptr && page->HasHelp() && VxHtmlHelp::Instance()->IsAvailable());
      },
      IDHELP);
  // Escape is the sheet's own (OnCharHook), not wx's standard-button emulation.
  SetEscapeId(wxID_NONE);
}

VxPropertySheet::~VxPropertySheet() {
  // The pages belong to the application and outlive the window; their
  // windows leave the book first, which would delete them again.
  ReleasePageWindows();
  for (VxPropertyPage * page : mPages) page->Attach(nullptr);
  mPages.clear();
}

bool VxPropertySheet::MakeWindow(wxWindow * parent) {
  if (GetHandle() == nullptr) {
    if (!wxDialog::Create(parent, wxID_ANY, mCaption, wxDefaultPosition, wxDefaultSize,
                          wxDEFAULT_DIALOG_STYLE | kResizableStyle | wxMAXIMIZE_BOX))
      return false;
  } else if (parent != nullptr && GetParent() == nullptr) {
    // A window left from an earlier run is the parent's child for this run only.
    parent->AddChild(this);
  }
  mSwitching = true;
  if (mWizard)
    mBook = new wxSimplebook(this, wxID_ANY);
  else
    mBook = new wxNotebook(this, wxID_ANY);
  for (VxPropertyPage * page : mPages) AddTab(page);
  auto * column = new wxBoxSizer(wxVERTICAL);
  column->Add(mBook, 1, wxEXPAND | wxALL, kButtonGap);
  auto * row = new wxBoxSizer(wxHORIZONTAL);
  AddButtons(*row);
  column->Add(row, 0, wxALIGN_RIGHT | wxLEFT | wxRIGHT | wxBOTTOM, kButtonGap);
  SetSizer(column);
  mSwitching = false;
  GetSizer()->SetSizeHints(this);
  if (mWizard) SetWizardButtons(mWizardFlags);
  if (!mSaveName.empty()) RestoreWindowPlace();
  return true;
}

void VxPropertySheet::AddButtons(wxBoxSizer & row) {
  auto add = [&](int id, char const * label) {
    auto * button = new wxButton(this, id, vx3::Tr(label));
    row.Add(button, 0, wxLEFT, kButtonGap);
    return button;
  };
  if (mWizard) {
    // Side by side, Finish beside Next when it shows.
    add(ID_WIZBACK, "< &Back");
    add(ID_WIZNEXT, "&Next >")->SetDefault();
    add(ID_WIZFINISH, "Finish");
    add(IDCANCEL, "Cancel");
    add(IDHELP, "Help");
    return;  // the flags apply once the window has room for every button
  }
  bool const commit = !mModeless || mKeepModalLayout;
  wxButton * ok = add(IDOK, "OK");
  ok->SetDefault();
  ok->Show(commit);
  add(IDCANCEL, "Cancel")->Show(commit);
  add(ID_APPLY_NOW, "&Apply")->Show(commit);
  add(IDHELP, "Help");
  UpdateApplyButton();
}

void VxPropertySheet::AddTab(VxPropertyPage * page) {
  wxWindow * window = page->CreatePageWindow(mBook);
  page->CaptionText();  // reads the template's size
  if (page->mTemplateSize != wxDefaultSize) window->SetMinSize(page->mTemplateSize);
  bool const switching = mSwitching;
  mSwitching = true;
  mBook->AddPage(window, page->CaptionText(), false);
  mSwitching = switching;
}

int VxPropertySheet::DoModal() {
  wxWindow * parent = mParent ? mParent.get() : AppMainWindow();
  if (parent != nullptr && !parent->IsShown()) parent = nullptr;
  mModeless = false;
  if (!MakeWindow(parent)) return -1;
  RunGuarded([this] {
    Activate(std::min<int>(static_cast<int>(mSelectPage), GetPageCount() - 1));
    OnInitDialog();
  });
  UpdateWindowUI(wxUPDATE_UI_RECURSE);
  int const result = ShowModal();
  SaveWindowPlace();
  if (IsShown()) Hide();
  ReleasePageWindows();
  DestroyChildren();
  SetSizer(nullptr);
  mBook = nullptr;
  // Between runs the window belongs to no one, so that a parent destroyed
  // meanwhile does not delete this object.
  if (wxWindow * owner = GetParent()) owner->RemoveChild(this);
  return result;
}

bool VxPropertySheet::Create(wxWindow * parent) {
  if (GetHandle() != nullptr) {
    if (!IsShown()) Show();
    return false;
  }
  mModeless = true;
  if (!MakeWindow(parent)) return false;
  RunGuarded([this] {
    if (GetPageCount() > 0)
      Activate(std::min<int>(static_cast<int>(mSelectPage), GetPageCount() - 1));
    OnInitDialog();
  });
  Show();
  return true;
}

void VxPropertySheet::EndDialog(int result) {
  SaveWindowPlace();
  if (IsModal())
    EndModal(result);
  else
    Hide();
}

void VxPropertySheet::ReleasePageWindows() {
  mSwitching = true;
  for (int index = GetPageCount() - 1; index >= 0; --index) {
    if (mBook != nullptr) mBook->RemovePage(static_cast<size_t>(index));
    mPages[static_cast<size_t>(index)]->DestroyPageWindow();
  }
  mSwitching = false;
  mActive = -1;
}

bool VxPropertySheet::OnInitDialog() {
  for (VxPropertyPage * page : mPages)
    if (!page->GetPageTitle().empty()) ShowPageTitle(page);
  return true;
}

void VxPropertySheet::OnClose() { OnCancel(); }

void VxPropertySheet::AddPage(VxPropertyPage * page) {
  if (page == nullptr || GetPageIndex(page) >= 0) return;
  if (page->GetSheet() != nullptr) page->GetSheet()->RemovePage(page);
  mPages.push_back(page);
  page->Attach(this);
  if (mBook == nullptr) return;
  AddTab(page);
  GrowToPages();
  if (mActive < 0 && !mSwitching) Activate(GetPageCount() - 1);
  UpdateApplyButton();
}

void VxPropertySheet::GrowToPages() {
  // A page added to a shown sheet (the Properties window starts empty), or
  // a button shown, may need more room than the window has; it never
  // shrinks under the user.
  if (GetSizer() == nullptr) return;
  wxSize const least = GetSizer()->ComputeFittingWindowSize(this);
  wxSize const now = GetSize();
  SetMinSize(least);
  if (now.x < least.x || now.y < least.y)
    SetSize(wxSize(std::max(now.x, least.x), std::max(now.y, least.y)));
}

void VxPropertySheet::RemovePage(VxPropertyPage * page) {
  int const index = GetPageIndex(page);
  if (index >= 0) RemovePage(index);
}

void VxPropertySheet::RemovePage(int index) {
  if (index < 0 || index >= GetPageCount()) return;
  VxPropertyPage * page = mPages[static_cast<size_t>(index)];
  bool const wasActive = index == mActive;
  bool const switching = mSwitching;
  mSwitching = true;
  if (mBook != nullptr) mBook->RemovePage(static_cast<size_t>(index));
  mSwitching = switching;
  page->DestroyPageWindow();
  page->Attach(nullptr);
  mPages.erase(mPages.begin() + index);
  if (wasActive) {
    mActive = -1;
    // Inside a switch of pages the caller chooses the next active page.
    if (mBook != nullptr && !mSwitching && GetPageCount() > 0)
      Activate(std::min(index, GetPageCount() - 1));
  } else if (index < mActive) {
    --mActive;
  }
  UpdateApplyButton();
}

VxPropertyPage * VxPropertySheet::GetPage(int index) const {
  if (index < 0 || index >= GetPageCount()) throw new CInvalidArgException;
  return mPages[static_cast<size_t>(index)];
}

int VxPropertySheet::GetPageIndex(VxPropertyPage const * page) const {
  auto const found = std::find(mPages.begin(), mPages.end(), page);
  return found == mPages.end() ? -1 : static_cast<int>(found - mPages.begin());
}

VxPropertyPage * VxPropertySheet::GetActivePage() const {
  return mActive >= 0 && mActive < GetPageCount() ? mPages[static_cast<size_t>(mActive)] : nullptr;
}

int VxPropertySheet::GetActiveIndex() const { return mActive; }

bool VxPropertySheet::SetActivePage(int index) {
  if (index < 0 || index >= GetPageCount()) return false;
  if (mBook == nullptr) {
    mSelectPage = static_cast<unsigned>(index);
    return true;
  }
  if (index == mActive) return true;
  VxPropertyPage * active = GetActivePage();
  if (active != nullptr && !active->OnKillActive()) return false;
  Activate(index);
  return true;
}

bool VxPropertySheet::SetActivePage(VxPropertyPage * page) {
  return SetActivePage(GetPageIndex(page));
}

void VxPropertySheet::Activate(int index) {
  if (index < 0 || index >= GetPageCount() || mBook == nullptr) return;
  VxPropertyPage * page = mPages[static_cast<size_t>(index)];
  mActive = index;
  bool const switching = mSwitching;
  mSwitching = true;
  if (mBook->GetSelection() != index) mBook->ChangeSelection(static_cast<size_t>(index));
  mSwitching = switching;
  // First activation: the page's controls come now.
  if (!page->IsBuilt()) page->BuildControls();
  page->OnSetActive();
}

void VxPropertySheet::OnPageChanging(wxBookCtrlEvent & event) {
  if (event.GetEventObject() != mBook || mSwitching) {
    event.Skip();
    return;
  }
  VxPropertyPage * active = GetActivePage();
  if (active != nullptr && !active->OnKillActive()) event.Veto();
}

void VxPropertySheet::SetWizardButtons(unsigned long flags) {
  mWizardFlags = flags;
  auto * back = wxDynamicCast(FindWindow(ID_WIZBACK), wxButton);
  auto * next = wxDynamicCast(FindWindow(ID_WIZNEXT), wxButton);
  auto * finish = wxDynamicCast(FindWindow(ID_WIZFINISH), wxButton);
  if (back == nullptr || next == nullptr || finish == nullptr) return;
  back->Enable((flags & PSWIZB_BACK) != 0);
  next->Enable((flags & PSWIZB_NEXT) != 0);
  finish->Show((flags & (PSWIZB_FINISH | PSWIZB_DISABLEDFINISH)) != 0);
  finish->Enable((flags & PSWIZB_FINISH) != 0);
  if ((flags & PSWIZB_FINISH) != 0)
    finish->SetDefault();
  else if ((flags & PSWIZB_NEXT) != 0)
    next->SetDefault();
  GrowToPages();
  if (wxSizer * sizer = GetSizer()) sizer->Layout();
}

bool VxPropertySheet::ApplyAllNow() {
  std::vector<VxPropertyPage *> waiting = mPages;
  for (;;) {
    auto const next = std::find_if(waiting.begin(), waiting.end(), [this](VxPropertyPage * page) {
      return page->IsChanged() || (!mModeless && page->IsBuilt());
    });
    if (next == waiting.end()) return true;
    VxPropertyPage * page = *next;
    if (!page->OnApply()) return false;
    // An apply may change other pages (or remove this one): search again.
    waiting.erase(std::remove(waiting.begin(), waiting.end(), page), waiting.end());
  }
}

void VxPropertySheet::OnOK() {
  VxPropertyPage * active = GetActivePage();
  if (active != nullptr && !active->OnKillActive()) return;
  if (ApplyAllNow()) {
    EndDialog(IDOK);
  } else if ((active = GetActivePage()) != nullptr) {
    active->OnSetActive();
  }
}

void VxPropertySheet::OnCancel() {
  for (VxPropertyPage * page : std::vector<VxPropertyPage *>(mPages))
    if (page->IsBuilt()) page->OnCancel();
  ClearChanged();
  EndDialog(IDCANCEL);
}

void VxPropertySheet::OnApply() {
  // The active page's controls go to its data first, as a tab change does.
  VxPropertyPage * active = GetActivePage();
  if (active != nullptr && !active->OnKillActive()) return;
  ApplyAllNow();
}

void VxPropertySheet::ClearChanged() {
  for (VxPropertyPage * page : mPages) page->Unchanged();
}

bool VxPropertySheet::IsChanged() const {
  return std::any_of(mPages.begin(), mPages.end(),
                     [](VxPropertyPage const * page) { return page->IsChanged(); });
}

void VxPropertySheet::EnableSaveRestore(wchar_t const * name) {
  mSaveName = name != nullptr ? name : L"";
  if (!mSaveName.empty() && GetHandle() != nullptr) RestoreWindowPlace();
}

void VxPropertySheet::SaveWindowPlace() {
  if (mSaveName.empty() || GetHandle() == nullptr || !IsShown()) return;
  std::string const text = WindowPlacementToString(VxGetWindowPlacement(*this));
  AppProfile::WriteProfileString(mSaveName.utf8_str().data(), kPlacementEntry, text.c_str());
}

void VxPropertySheet::RestoreWindowPlace() {
  std::string const text =
      AppProfile::GetProfileString(mSaveName.utf8_str().data(), kPlacementEntry, "");
  WINDOWPLACEMENT placement{};
  if (!text.empty() && ParseWindowPlacement(text.c_str(), placement)) {
    // Never smaller than the pages need.
    wxSize const least = GetMinSize();
    RECT & rect = placement.rcNormalPosition;
    rect.right = std::max<LONG>(rect.right, rect.left + least.x);
    rect.bottom = std::max<LONG>(rect.bottom, rect.top + least.y);
    VxSetWindowPlacement(*this, placement);
  }
  VxTrackWindowPlacement(*this);
}

void VxPropertySheet::UpdateApplyButton() {
  wxWindow * apply = GetHandle() != nullptr ? FindWindow(ID_APPLY_NOW) : nullptr;
  if (apply == nullptr) return;
  apply->Enable(std::any_of(mPages.begin(), mPages.end(),
                            [](VxPropertyPage const * page) { return page->IsModified(); }));
}

void VxPropertySheet::ShowPageTitle(VxPropertyPage * page) {
  int const index = GetPageIndex(page);
  if (mBook == nullptr || index < 0 || static_cast<size_t>(index) >= mBook->GetPageCount()) return;
  mBook->SetPageText(static_cast<size_t>(index), page->CaptionText());
}

void VxPropertySheet::WizardStep(int direction) {
  VxPropertyPage * active = GetActivePage();
  if (active == nullptr) return;
  int const target = direction < 0 ? active->OnWizardBack() : active->OnWizardNext();
  if (target == -1) return;
  int index = mActive + direction;
  if (target != 0) {
    auto const found = std::find_if(mPages.begin(), mPages.end(), [target](auto const * page) {
      return page->GetTemplateID() == static_cast<unsigned>(target);
    });
    if (found == mPages.end()) return;
    index = static_cast<int>(found - mPages.begin());
  }
  SetActivePage(index);
}

void VxPropertySheet::Finish() {
  VxPropertyPage * active = GetActivePage();
  if (active != nullptr && !active->OnWizardFinish()) return;
  EndDialog(ID_WIZFINISH);
}

void VxPropertySheet::OnButton(wxCommandEvent & event) {
  // Buttons of the pages with the same numbers are the pages' business.
  auto const * source = dynamic_cast<wxWindow *>(event.GetEventObject());
  if (source == nullptr || source->GetParent() != this) {
    event.Skip();
    return;
  }
  switch (event.GetId()) {
    case IDOK: OnOK(); break;
    case IDCANCEL: OnCancel(); break;
    case ID_APPLY_NOW: OnApply(); break;
    case IDHELP:
      if (VxPropertyPage * page = GetActivePage()) page->OnHelp();
      break;
    case ID_WIZBACK: WizardStep(-1); break;
    case ID_WIZNEXT: WizardStep(1); break;
    case ID_WIZFINISH: Finish(); break;
    default: event.Skip(); break;
  }
}

void VxPropertySheet::OnCharHook(wxKeyEvent & event) {
  if (event.GetModifiers() == wxMOD_NONE && event.GetKeyCode() == WXK_ESCAPE) {
    OnCancel();
    return;
  }
  if (event.GetModifiers() == wxMOD_NONE && event.GetKeyCode() == WXK_F1) {
    if (VxPropertyPage * page = GetActivePage()) page->OnHelp();
    return;
  }
  event.Skip();
}
