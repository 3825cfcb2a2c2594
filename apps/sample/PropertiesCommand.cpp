#include "PropertiesCommand.h"

#include <memory>
#include <string>

#include <wx/frame.h>
#include <wx/menu.h>
#include <wx/textctrl.h>

#include "RunList.h"
#include "SampleCommands.h"
#include "platform/commctrl/ListViewDefs.h"
#include "properties/BasePropertyPageHelper.h"
#include "properties/VxModelessPropertySheet.h"
#include "properties/VxPropertiesHandler.h"
#include "properties/VxPropertyPage.h"
#include "utl/Translation.h"

using vx3::Tr;

namespace {

constexpr unsigned kRunPage = 7150;
constexpr int kRunNameEdit = 7151;
constexpr int kRunStateEdit = 7152;
constexpr unsigned kCommentPage = 7160;
constexpr int kCommentEdit = 7161;
constexpr unsigned kRetirementPage = 7170;
constexpr int kRetiredBecauseEdit = 7171;

// The run the pages show: a row of the list.
struct Selection {
  RunList * list = nullptr;
  int row = -1;
  wxString Name() const {
    return row >= 0 ? list->GetItemText(row, RunList::kNameColumn) : wxString();
  }
};

void SetText(VxPropertyPage const & page, int id, wxString const & text) {
  if (auto * edit = static_cast<wxTextCtrl *>(page.GetDlgItem(id))) edit->ChangeValue(text);
}

class RunPage : public VxPropertyPage {
public:
  explicit RunPage(Selection const & selection) : VxPropertyPage(kRunPage), mSelection(selection) {}
  bool OnSetActive() override {
    SetText(*this, kRunNameEdit, mSelection.Name());
    SetText(*this, kRunStateEdit, Tr("In use"));
    return VxPropertyPage::OnSetActive();
  }

private:
  Selection const & mSelection;
};

// The page both handlers share: the comment of the selected run.
class CommentPage : public VxPropertyPage {
public:
  CommentPage(Selection const & selection, BasePropertyPageHelper & helper)
      : VxPropertyPage(kCommentPage, 0, &helper), mSelection(selection) {
    Bind(
        wxEVT_TEXT, [this](wxCommandEvent &) { Changed(); }, kCommentEdit);
  }
  // The selection moved: show its comment.
  void Refresh() {
    mComment = mSelection.row >= 0
                   ? mSelection.list->GetItemText(mSelection.row, RunList::kCommentColumn)
                   : wxString();
    if (GetSafeHwnd() != nullptr) UpdateData(false);
  }
  bool OnInitDialog() override {
    AddAnchor(kCommentEdit, TOP_LEFT, BOTTOM_RIGHT);
    return VxPropertyPage::OnInitDialog();
  }
  bool DoDataExchange(bool save) override {
    auto * edit = static_cast<wxTextCtrl *>(GetDlgItem(kCommentEdit));
    if (save)
      mComment = edit->GetValue();
    else
      edit->ChangeValue(mComment);
    return true;
  }
  bool OnApply() override {
    if (mSelection.row >= 0)
      mSelection.list->SetItemText(mSelection.row, RunList::kCommentColumn, mComment);
    return VxPropertyPage::OnApply();
  }

private:
  Selection const & mSelection;
  wxString mComment;
};

class RetirementPage : public VxPropertyPage {
public:
  explicit RetirementPage(Selection const & selection)
      : VxPropertyPage(kRetirementPage), mSelection(selection) {}
  bool OnSetActive() override {
    SetText(*this, kRetiredBecauseEdit,
            wxString::Format(Tr("%s was replaced by a newer run."), mSelection.Name()));
    return VxPropertyPage::OnSetActive();
  }

private:
  Selection const & mSelection;
};

// One kind of run: its pages, the one to show first, the shared helper.
class RunHandler : public VxPropertiesHandler {
public:
  RunHandler(VxPropertyPage & own, VxPropertyPage & shared, bool sharedFirst,
             BasePropertyPageHelper & helper)
      : mFirst(sharedFirst ? shared : own), mSecond(sharedFirst ? own : shared), mHelper(helper) {}
  void AddPropertyPages(VxModelessPropertySheet & sheet) override {
    sheet.AddRefCountedPage(&mFirst);
    sheet.AddRefCountedPage(&mSecond);
  }
  VxPropertyPage * ChooseActivePage(VxPropertyPage * previous) override {
    return previous == &mSecond ? &mSecond : &mFirst;
  }
  BasePropertyPageHelper * GetPropertyPageHelper() override { return &mHelper; }

private:
  VxPropertyPage & mFirst;
  VxPropertyPage & mSecond;
  BasePropertyPageHelper & mHelper;
};

// Everything the Properties window shows for the frame's runs.
class RunProperties {
public:
  explicit RunProperties(RunList & list) {
    mSelection.list = &list;
    // The list tells its parent what changed.
    list.GetParent()->Bind(VX_EVT_NOTIFY, [this, &list](NotifyEvent & event) {
      event.Skip();
      if (event.GetHeader()->hwndFrom != &list || event.GetCode() != LVN_ITEMCHANGED) return;
      auto const * change = event.GetNotification<NMLISTVIEW>();
      if ((change->uChanged & LVIF_STATE) != 0 && (change->uNewState & LVIS_SELECTED) != 0 &&
          (change->uOldState & LVIS_SELECTED) == 0)
        Follow(change->iItem);
    });
  }
  RunProperties(RunProperties const &) = delete;
  RunProperties & operator=(RunProperties const &) = delete;
  ~RunProperties() {
    // The pages go with this object: the window lets go of them first.
    if (VxModelessPropertySheet::Exists() &&
        (VxModelessPropertySheet::Instance()->GetPropertiesHandler() == &mActive ||
         VxModelessPropertySheet::Instance()->GetPropertiesHandler() == &mRetired))
      VxModelessPropertySheet::Instance()->ChangePropertiesHandler(nullptr);
  }

  void Show(wxFrame & frame) {
    VxModelessPropertySheet * sheet = VxModelessPropertySheet::Instance();
    sheet->Create();
    sheet->Raise();
    int const row = mSelection.list->GetNextItem(-1, LVNI_SELECTED);
    Follow(row >= 0 ? row : 0);
    frame.SetStatusText(Tr("Status", "The Properties window follows the selected run."));
  }

private:
  void Follow(int row) {
    if (!VxModelessPropertySheet::Exists() || !VxModelessPropertySheet::Instance()->IsShown())
      return;
    if (row < 0 || row >= mSelection.list->GetItemCount()) return;
    mSelection.row = row;
    mComment.Refresh();
    bool const retired = RunList::IsRetired(mSelection.Name().utf8_string());
    VxModelessPropertySheet * sheet = VxModelessPropertySheet::Instance();
    sheet->ChangePropertiesHandler(retired ? &mRetired : &mActive);
    // The page shown stays; it shows the new run now.
    if (VxPropertyPage * page = sheet->GetActivePage()) page->OnSetActive();
  }

  Selection mSelection;
  BasePropertyPageHelper mHelper;
  RunPage mRun{mSelection};
  CommentPage mComment{mSelection, mHelper};
  RetirementPage mRetirement{mSelection};
  RunHandler mActive{mRun, mComment, false, mHelper};
  RunHandler mRetired{mRetirement, mComment, true, mHelper};
};

}  // namespace

void AddPropertiesCommand(wxMenu & menu, wxFrame & frame, RunList & runs) {
  menu.Append(kPropertiesCommand, Tr("Menu command", "&Properties"));
  auto properties = std::make_shared<RunProperties>(runs);
  frame.Bind(
      wxEVT_MENU, [properties, &frame](wxCommandEvent &) { properties->Show(frame); },
      kPropertiesCommand);
}
