#include "dialogs/CSelectFolderDialog.h"

#include <sys/stat.h>
#include <unistd.h>
#include <cerrno>
#include <cstring>

#include <wx/choice.h>
#include <wx/dirctrl.h>
#include <wx/filefn.h>
#include <wx/log.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/treectrl.h>
#include <wx/utils.h>

#include "dialogs/FileDialogFilter.h"
#include "dialogs/FileSystemNames.h"
#include "dialogs/FolderPathRules.h"
#include "platform/MessageBoxes.h"
#include "platform/WinUser.h"
#include "utl/Translation.h"

using vx3::Tr;

bool CSelectFolderDialog::mbAllowDoubleSlash = false;

namespace {

// Room the file types take below the edit when they are shown.
constexpr int kFileTypesHeight = 44;

wxString Shown(std::string const & path) {
  return wxString::FromUTF8(FolderPathRules::DisplayablePath(path));
}

wxString WithInsert(wxString text, wxString const & insert) {
  text.Replace("%1%", insert);
  return text;
}

}  // namespace

CSelectFolderDialog::CSelectFolderDialog(int showFiles, wchar_t const * initialFolder,
                                         unsigned long, wchar_t const * filter, wxWindow * parent)
    : VxDialog(kTemplateId, parent),
      mShowFiles(showFiles != 0),
      mInitialFolder(initialFolder != nullptr ? wxString(initialFolder) : wxString()),
      mTitle(Tr("Select folder")) {
  // Without files the tree lists folders only (the file dialog's "*..*",
  // which no name matches); with files, the filter's patterns or all files.
  if (mShowFiles) mWildcard = ToChooserWildcard(filter);
}

CSelectFolderDialog::~CSelectFolderDialog() = default;

bool CSelectFolderDialog::SetAllowDoubleSlash(bool allow) {
  bool const former = mbAllowDoubleSlash;
  mbAllowDoubleSlash = allow;
  return former;
}

void CSelectFolderDialog::SetSelectedPath(wchar_t const * path) {
  mSelectedPath = path != nullptr ? wxString(path) : wxString();
}

void CSelectFolderDialog::SetTitle(wxString const & title) {
  if (!mBuilding) mTitle = title;
  if (GetHandle() != nullptr) VxDialog::SetTitle(mBuilding ? mTitle : title);
}

int CSelectFolderDialog::DoModal() {
  mBuilding = true;
  int const result = VxDialog::DoModal();
  mBuilding = false;
  mTree = nullptr;
  return result;
}

bool CSelectFolderDialog::OnInitDialog() {
  mBuilding = false;
  VxDialog::OnInitDialog();
  SetTitle(mTitle);
  if (wxWindow * select = GetDlgItem(IDOK)) select->SetLabel(Tr("Select Folder", "Select"));
  if (wxWindow * label = GetDlgItem(kFolderLabelId)) label->SetLabel(Tr("Current Folder"));
  CreateTree();
  ShowFileTypes();
  AnchorControls();
  SetMinTrackSize(GetSize());
  OnFolderChange();
  if (wxWindow * edit = GetDlgItem(kFolderEditId)) edit->SetFocus();
  return true;
}

void CSelectFolderDialog::CreateTree() {
  wxWindow * placeHolder = GetDlgItem(kTreeId);
  wxRect const rect = placeHolder != nullptr ? placeHolder->GetRect() : wxRect(12, 12, 400, 280);
  if (placeHolder != nullptr) placeHolder->Destroy();

  long style = wxDIRCTRL_3D_INTERNAL;
  if (!mShowFiles) style |= wxDIRCTRL_DIR_ONLY;
  wxString start = mInitialFolder;
  if (start.empty()) start = wxGetCwd();
  std::string const startPath = FolderPathRules::CutTrailingSeparator(ToFileSystemPath(start));
  // Folders that cannot be read are reported when the user opens them, not
  // by wx's log while the tree is built.
  wxLogNull quiet;
  mTree = new wxGenericDirCtrl(this, kTreeId, wxDirDialogDefaultFolderStr, rect.GetPosition(),
                               rect.GetSize(), style, mWildcard);
  mTree->MoveBeforeInTabOrder(GetDlgItem(kFolderLabelId));
  mTree->ExpandPath(FromFileSystemPath(startPath));
  mTree->Bind(wxEVT_DIRCTRL_SELECTIONCHANGED, [this](wxTreeEvent &) { OnFolderChange(); });
  mTree->GetTreeCtrl()->Bind(wxEVT_TREE_ITEM_EXPANDING, &CSelectFolderDialog::OnExpanding, this);
}

void CSelectFolderDialog::ShowFileTypes() {
  auto * choice = dynamic_cast<wxChoice *>(GetDlgItem(kTypeChoiceId));
  wxWindow * label = GetDlgItem(kTypeLabelId);
  if (choice == nullptr || label == nullptr) return;
  if (!mShowFiles || mWildcard.empty()) {
    choice->Hide();
    label->Hide();
    return;
  }
  wxArrayString const parts = wxSplit(mWildcard, '|', '\0');
  for (size_t i = 0; i + 1 < parts.size(); i += 2) choice->Append(parts[i]);
  choice->SetSelection(0);
  choice->Bind(wxEVT_CHOICE, [this](wxCommandEvent &) { OnTypeChosen(); });
  label->Show();
  choice->Show();
  for (int id : {IDOK, IDCANCEL}) {
    if (wxWindow * button = GetDlgItem(id))
      button->Move(button->GetPosition() + wxPoint(0, kFileTypesHeight));
  }
  wxSize const client = GetClientSize();
  SetClientSize(client.x, client.y + kFileTypesHeight);
}

void CSelectFolderDialog::AnchorControls() {
  AddAnchor(mTree, TOP_LEFT, BOTTOM_RIGHT);
  AddAnchor(kFolderLabelId, BOTTOM_LEFT);
  AddAnchor(kFolderEditId, BOTTOM_LEFT, BOTTOM_RIGHT);
  AddAnchor(kTypeLabelId, BOTTOM_LEFT);
  AddAnchor(kTypeChoiceId, BOTTOM_LEFT, BOTTOM_RIGHT);
  AddAnchor(IDOK, BOTTOM_RIGHT);
  AddAnchor(IDCANCEL, BOTTOM_RIGHT);
}

void CSelectFolderDialog::OnTypeChosen() {
  auto * choice = dynamic_cast<wxChoice *>(GetDlgItem(kTypeChoiceId));
  if (choice == nullptr || mTree == nullptr) return;
  wxLogNull quiet;
  wxString const folder = TreeFolder();
  mTree->SetFilterIndex(choice->GetSelection());
  mTree->ReCreateTree();
  mTree->ExpandPath(folder);
}

wxString CSelectFolderDialog::TreeFolder() const {
  if (mTree == nullptr) return wxString();
  wxString path = mTree->GetPath();
  // With files shown, a file may be selected: its folder is meant.
  if (mShowFiles && !path.empty() && !wxDirExists(path)) path = wxPathOnly(path);
  return path;
}

void CSelectFolderDialog::OnFolderChange() {
  if (auto * edit = dynamic_cast<wxTextCtrl *>(GetDlgItem(kFolderEditId))) {
    edit->ChangeValue(TreeFolder());
    edit->SetInsertionPointEnd();
  }
}

void CSelectFolderDialog::OnExpanding(wxTreeEvent & event) {
  auto * data =
      mTree != nullptr
          ? dynamic_cast<wxDirItemData *>(mTree->GetTreeCtrl()->GetItemData(event.GetItem()))
          : nullptr;
  if (data == nullptr) {
    event.Skip();
    return;
  }
  // The tree lists a folder when it is opened: one that went away or may
  // not be read is said so here, instead of in wx's log.
  std::string const path = ToFileSystemPath(data->m_path);
  struct stat info {};
  wxString problem;
  if (::stat(path.c_str(), &info) != 0 || !S_ISDIR(info.st_mode))
    problem = Tr("The folder '%1%' is no longer there.");
  else if (::access(path.c_str(), R_OK | X_OK) != 0)
    problem = Tr("The folder '%1%' cannot be opened: you may not read it.");
  if (problem.empty()) {
    event.Skip();
    return;
  }
  event.Veto();
  AfxMessageBox(WithInsert(problem, Shown(path)), MB_ICONEXCLAMATION);
}

void CSelectFolderDialog::OnOK() {
  wxString typed;
  if (auto * edit = dynamic_cast<wxTextCtrl *>(GetDlgItem(kFolderEditId))) typed = edit->GetValue();
  if (typed.Strip(wxString::both).empty()) typed = TreeFolder();
  std::string path = FolderPathRules::ResolveTypedFolder(
      ToFileSystemPath(typed), ToFileSystemPath(TreeFolder()), ToFileSystemPath(wxGetHomeDir()));
  if (path.empty()) return;

  if (!mbAllowDoubleSlash && FolderPathRules::HasDoubleSeparator(path)) {
    AfxMessageBox(Tr("Invalid Folder"), MB_ICONHAND);
    return;
  }
  path = FolderPathRules::CutTrailingSeparator(path);
  struct stat info {};
  if (::stat(path.c_str(), &info) == 0) {
    if (!S_ISDIR(info.st_mode)) {
      AfxMessageBox(WithInsert(Tr("'%1%' is a file, not a folder."), Shown(path)), MB_ICONHAND);
      return;
    }
    Accept(path);
    return;
  }
  int const error = errno;
  if (error != ENOENT) {
    // Nothing to create: a name too long, a file in the way, no permission.
    wxString text = WithInsert(Tr("The folder '%1%' cannot be reached."), Shown(path));
    text += "\n\n" + wxString::FromUTF8(std::strerror(error));
    AfxMessageBox(text, MB_ICONHAND);
    return;
  }
  wxString const question =
      Shown(path) + "\n\n" + Tr("This path does not exist. Do you want to create it?");
  if (AfxMessageBox(question, MB_YESNO | MB_ICONQUESTION) != IDYES) {
    Accept(path);  // No takes the folder as typed
    return;
  }
  if (::stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode)) {
    Accept(path);
    return;
  }
  AfxMessageBox(Tr("Could not create folder:\n") + Shown(path), MB_ICONHAND);
}

void CSelectFolderDialog::Accept(std::string const & folder) {
  mSelectedPath = FromFileSystemPath(FolderPathRules::WithTrailingSeparator(folder));
  EndDialog(IDOK);
}
