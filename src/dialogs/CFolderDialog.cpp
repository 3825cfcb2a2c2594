#include "dialogs/CFolderDialog.h"

#include <utility>

#include <wx/arrstr.h>
#include <wx/choicdlg.h>

#include "dialogs/FileSystemNames.h"
#include "dialogs/FolderPathRules.h"
#include "dialogs/NativeChoosers.h"
#include "dialogs/PrinterList.h"
#include "platform/CommDlg.h"
#include "platform/MessageBoxes.h"
#include "platform/WinUser.h"
#include "utl/Paths.h"
#include "utl/Translation.h"

using vx3::Tr;

namespace {

// `path`, or the nearest folder above it that is still there; "" when
// nothing of it is.
std::string NearestExistingFolder(std::string path) {
  while (!path.empty()) {
    if (VxFileExist(path) == VxFolder) return path;
    std::string const parent = VxGetDirectory(path);
    if (parent == path) break;
    path = parent;
  }
  return std::string();
}

}  // namespace

CFolderDialog::CFolderDialog(wxWindow * parent, wxString const & title, BrowseType type)
    : mParent(parent), mTitle(title), mType(type) {}

unsigned int CFolderDialog::GetBrowseFlags() const {
  switch (mType) {
    case BrowseForComputer: return BIF_BROWSEFORCOMPUTER;
    case BrowseForPrinter: return BIF_BROWSEFORPRINTER;
    case BrowseForFolder:
    default: return BIF_RETURNONLYFSDIRS;
  }
}

int CFolderDialog::GetRootFolder() const {
  switch (mType) {
    case BrowseForComputer: return CSIDL_NETWORK;
    case BrowseForPrinter: return CSIDL_PRINTERS;
    case BrowseForFolder:
    default: return 0;
  }
}

int CFolderDialog::DoModal() {
  mFolderName.clear();
  switch (mType) {
    case BrowseForComputer:
      AfxMessageBox(Tr("Browsing the network for computers is not offered on this system. "
                       "Please type the computer's name instead."),
                    MB_ICONINFORMATION);
      return IDCANCEL;
    case BrowseForPrinter: return BrowsePrinters();
    case BrowseForFolder:
    default: return BrowseFolders();
  }
}

int CFolderDialog::BrowseFolders() {
  FolderChooserRequest request;
  request.parent = mParent;
  request.title = mTitle;
  request.initialFolder = mInitialFolder;
  FolderChooserAnswer const answer = RunFolderChooser(request);
  if (!answer.accepted) return IDCANCEL;
  mFolderName =
      wxString::FromUTF8(FolderPathRules::CutTrailingSeparator(answer.path.utf8_string()));
  return IDOK;
}

int CFolderDialog::BrowsePrinters() {
  PrinterListing const printers = ListPrinters();
  if (printers.names.empty()) {
    wxString text = Tr("No printer is set up on this computer.");
    if (!printers.error.empty())
      text = Tr("The printers cannot be listed.") + "\n\n" +
             wxString::FromUTF8(FolderPathRules::DisplayablePath(printers.error));
    AfxMessageBox(text, MB_ICONEXCLAMATION);
    return IDCANCEL;
  }
  wxArrayString names;
  for (std::string const & name : printers.names)
    names.push_back(wxString::FromUTF8(FolderPathRules::DisplayablePath(name)));
  wxSingleChoiceDialog dialog(mParent, Tr("Choose a printer:"),
                              mTitle.empty() ? Tr("Printers") : mTitle, names);
  dialog.SetSelection(0);
  if (dialog.ShowModal() != wxID_OK) return IDCANCEL;
  int const chosen = dialog.GetSelection();
  if (chosen < 0 || static_cast<size_t>(chosen) >= printers.names.size()) return IDCANCEL;
  mFolderName = wxString::FromUTF8(printers.names[static_cast<size_t>(chosen)]);
  return IDOK;
}

bool BrowseForFolder(std::string & path, wxWindow * parent, char const * title,
                     char const * start) {
  wxString const shownTitle =
      title != nullptr && *title != '\0' ? wxString::FromUTF8(title) : Tr("Browse for a folder.");
  CFolderDialog dialog(parent, shownTitle, CFolderDialog::BrowseForFolder);
  if (start != nullptr && *start != '\0')
    dialog.SetInitialFolder(FromFileSystemPath(NearestExistingFolder(start)));
  if (dialog.DoModal() != IDOK) return false;
  path = ToFileSystemPath(dialog.GetFolderName());
  return true;
}
