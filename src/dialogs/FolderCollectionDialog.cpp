#include "dialogs/FolderCollectionDialog.h"

#include <wx/button.h>
#include <wx/imaglist.h>
#include <wx/listctrl.h>

#include "dialogs/CFolderDialog.h"
#include "dialogs/FileSystemNames.h"
#include "dialogs/FolderPathRules.h"
#include "platform/MessageBoxes.h"
#include "platform/ResourceModule.h"
#include "platform/WinUser.h"
#include "utl/Paths.h"
#include "utl/Translation.h"

using vx3::Tr;

namespace {

// COLORREF 0x808000: the pixels of the images that are see-through.
wxColour const kMaskColour(0x00, 0x80, 0x80);

wxString Shown(wxString const & path) {
  return wxString::FromUTF8(FolderPathRules::DisplayablePath(ToFileSystemPath(path)));
}

}  // namespace

FolderCollectionDialog::FolderCollectionDialog(wchar_t const * folders, wchar_t const * title,
                                               wchar_t const * prompt, wxWindow * parent)
    : VxDialog(kTemplateId, parent),
      mFolders(folders != nullptr ? folders : L""),
      mTitle(title != nullptr ? title : L""),
      mPrompt(prompt != nullptr ? prompt : L"") {}

wxListCtrl * FolderCollectionDialog::List() const {
  return dynamic_cast<wxListCtrl *>(GetDlgItem(kListId));
}

std::vector<wxString> FolderCollectionDialog::GetRows() const {
  std::vector<wxString> rows;
  if (wxListCtrl * list = List()) {
    for (long row = 0; row < list->GetItemCount(); ++row) rows.push_back(list->GetItemText(row));
  }
  return rows;
}

bool FolderCollectionDialog::OnInitDialog() {
  VxDialog::OnInitDialog();
  if (!mTitle.empty()) SetTitle(mTitle);
  if (wxWindow * prompt = GetDlgItem(kPromptId)) prompt->SetLabel(mPrompt);
  wxListCtrl * list = List();
  if (list == nullptr) return true;
  list->InsertColumn(0, Tr("Title, same as directories/folders", "Paths"));
  SetImages();
  for (std::string const & folder : FolderPathRules::SplitFolderList(mFolders.utf8_string()))
    AddRow(wxString::FromUTF8(folder));
  AddRow(wxString());
  BindControls();

  AddAnchor(kPromptId, TOP_LEFT, TOP_RIGHT);
  AddAnchor(kListId, TOP_LEFT, BOTTOM_RIGHT);
  for (int id : {kBrowseId, kDeleteId, kUpId, kDownId}) AddAnchor(id, TOP_RIGHT);
  AddAnchor(IDOK, BOTTOM_RIGHT);
  AddAnchor(IDCANCEL, BOTTOM_RIGHT);
  SetMinTrackSize(GetSize());
  list->SetColumnWidth(0, list->GetClientSize().x);
  SelectRow(0);
  return true;
}

void FolderCollectionDialog::SetImages() {
  wxBitmap const rows = LoadResourceBitmap(kRowImagesId);
  if (rows.IsOk()) {
    auto * images = new wxImageList(16, 16, true);
    images->Add(rows, kMaskColour);
    List()->AssignImageList(images, wxIMAGE_LIST_SMALL);
  }
  wxBitmap const buttons = LoadResourceBitmap(kButtonImagesId);
  if (!buttons.IsOk() || buttons.GetWidth() < 48) return;
  int index = 0;
  for (int id : {kDeleteId, kUpId, kDownId}) {
    wxBitmap image = buttons.GetSubBitmap(wxRect(16 * index++, 0, 16, 16));
    image.SetMask(new wxMask(image, kMaskColour));
    if (auto * button = dynamic_cast<wxButton *>(GetDlgItem(id))) button->SetBitmap(image);
  }
  if (rows.IsOk() && rows.GetWidth() >= 32) {
    wxBitmap image = rows.GetSubBitmap(wxRect(16, 0, 16, 16));
    image.SetMask(new wxMask(image, kMaskColour));
    if (auto * button = dynamic_cast<wxButton *>(GetDlgItem(kBrowseId))) button->SetBitmap(image);
  }
}

void FolderCollectionDialog::BindControls() {
  wxListCtrl * list = List();
  list->Bind(wxEVT_LIST_END_LABEL_EDIT, &FolderCollectionDialog::OnPathChanged, this);
  list->Bind(wxEVT_LIST_ITEM_ACTIVATED,
             [list](wxListEvent & event) { list->EditLabel(event.GetIndex()); });
  list->Bind(wxEVT_SIZE, [list](wxSizeEvent & event) {
    event.Skip();
    list->SetColumnWidth(0, list->GetClientSize().x);
  });
  Bind(
      wxEVT_BUTTON, [this](wxCommandEvent &) { OnItemButtonClick(); }, kBrowseId);
  Bind(
      wxEVT_BUTTON, [this](wxCommandEvent &) { OnDelete(); }, kDeleteId);
  Bind(
      wxEVT_BUTTON, [this](wxCommandEvent &) { OnUp(); }, kUpId);
  Bind(
      wxEVT_BUTTON, [this](wxCommandEvent &) { OnDown(); }, kDownId);
  auto enable = [this](int id, auto rule) {
    Bind(
        wxEVT_UPDATE_UI,
        [this, rule](wxUpdateUIEvent & event) {
          wxListCtrl * rows = List();
          long const row = SelectedRow();
          event.Enable(rows != nullptr && row >= 0 && rule(row, rows->GetItemCount()));
        },
        id);
  };
  enable(kBrowseId, [](long, long) { return true; });
  enable(kDeleteId, [](long row, long count) { return row != count - 1; });
  enable(kUpId, [](long row, long count) { return row > 0 && row != count - 1; });
  enable(kDownId, [](long row, long count) { return row < count - 2; });
}

void FolderCollectionDialog::AddRow(wxString const & text) {
  wxListCtrl * list = List();
  if (list != nullptr) list->InsertItem(list->GetItemCount(), text, 0);
}

void FolderCollectionDialog::CheckEmptyRows() {
  wxListCtrl * list = List();
  if (list == nullptr) return;
  long const selected = SelectedRow();
  bool changed = false;
  for (long row = list->GetItemCount() - 2; row >= 0; --row) {
    if (!list->GetItemText(row).empty()) continue;
    list->DeleteItem(row);
    changed = true;
  }
  long const count = list->GetItemCount();
  if (count == 0 || !list->GetItemText(count - 1).empty()) {
    AddRow(wxString());
    changed = true;
  }
  if (changed) SelectRow(std::min(selected, static_cast<long>(list->GetItemCount()) - 1));
}

long FolderCollectionDialog::SelectedRow() const {
  wxListCtrl * list = List();
  return list != nullptr ? list->GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_SELECTED) : -1;
}

void FolderCollectionDialog::SelectRow(long row) {
  wxListCtrl * list = List();
  if (list == nullptr || row < 0 || row >= list->GetItemCount()) return;
  list->SetItemState(row, wxLIST_STATE_SELECTED | wxLIST_STATE_FOCUSED,
                     wxLIST_STATE_SELECTED | wxLIST_STATE_FOCUSED);
  list->EnsureVisible(row);
}

void FolderCollectionDialog::OnItemButtonClick() {
  wxListCtrl * list = List();
  long const row = SelectedRow();
  if (list == nullptr || row < 0) return;
  std::string path = ToFileSystemPath(list->GetItemText(row));
  if (!BrowseForFolder(path, this, mTitle.utf8_string().c_str(), path.c_str())) return;
  list->SetItemText(row, FromFileSystemPath(path));
  CheckEmptyRows();
}

void FolderCollectionDialog::OnPathChanged(wxListEvent & event) {
  if (event.IsEditCancelled()) return;
  // The list takes the new text after this handler; the rows are looked
  // at once it has.
  CallAfter([this] { CheckEmptyRows(); });
}

void FolderCollectionDialog::OnDelete() {
  wxListCtrl * list = List();
  long const row = SelectedRow();
  if (list == nullptr || row < 0 || row == list->GetItemCount() - 1) return;
  list->DeleteItem(row);
  SelectRow(row);
}

void FolderCollectionDialog::OnUp() {
  long const row = SelectedRow();
  if (row > 0 && row != List()->GetItemCount() - 1) SwapWithRow(row - 1);
}

void FolderCollectionDialog::OnDown() {
  long const row = SelectedRow();
  if (row >= 0 && row < List()->GetItemCount() - 2) SwapWithRow(row + 1);
}

void FolderCollectionDialog::SwapWithRow(long neighbour) {
  wxListCtrl * list = List();
  long const row = SelectedRow();
  wxString const text = list->GetItemText(row);
  list->SetItemText(row, list->GetItemText(neighbour));
  list->SetItemText(neighbour, text);
  SelectRow(neighbour);
}

void FolderCollectionDialog::OnOK() {
  std::vector<std::string> folders;
  for (wxString const & row : GetRows()) {
    if (row.empty()) continue;
    std::string const folder = row.utf8_string();
    if (VxFileExist(ToFileSystemPath(row)) != VxFolder) {
      wxString text = Tr("The folder '%1%' does not exist.");
      text.Replace("%1%", Shown(row));
      AfxMessageBox(text, MB_ICONHAND);
      return;
    }
    if (!FolderPathRules::FitsFolderList(folder)) {
      wxString text =
          Tr("The folder '%1%' cannot be kept in this list: its name contains "
             "';' or begins or ends with a space.");
      text.Replace("%1%", Shown(row));
      AfxMessageBox(text, MB_ICONHAND);
      return;
    }
    folders.push_back(folder);
  }
  mFolders = wxString::FromUTF8(FolderPathRules::JoinFolderList(folders));
  EndDialog(IDOK);
}
