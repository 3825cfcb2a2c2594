#include "FileCommands.h"

#include <utility>

#include <wx/frame.h>
#include <wx/menu.h>

#include "SampleCommands.h"
#include "dialogs/CSelectFolderDialog.h"
#include "dialogs/FolderCollectionDialog.h"
#include "dialogs/VxFileDialog.h"
#include "frame/AppProfile.h"
#include "platform/MessageBoxes.h"
#include "platform/WinUser.h"
#include "utl/AtomicFile.h"
#include "utl/Exception.h"
#include "utl/Translation.h"

using vx3::Tr;

namespace {

constexpr char const * kSampleSection = "Sample";
constexpr char const * kSearchFoldersEntry = "SearchFolders";

wchar_t const * const kDataFilter = L"Measurements (*.dat;*.csv)|*.dat;*.csv|All files (*.*)|*.*||";

void OnOpen(wxFrame & frame) {
  // Its own names buffer: a selection of any length is taken.
  VxFileDialog dialog(VxFileDialog::eImportDir, 1, nullptr, nullptr,
                      OFN_FILEMUSTEXIST | OFN_ALLOWMULTISELECT, kDataFilter, &frame, 1 << 16);
  if (dialog.DoModal() != IDOK) return;
  std::vector<wxString> names;
  dialog.GetFileNames(names);
  wxString text = Tr("Opened %1% file(s) from %2%");
  text.Replace("%1%", wxString::Format("%zu", names.size()));
  text.Replace("%2%", dialog.GetFolderPath());
  frame.SetStatusText(text);
}

void OnSaveAs(wxFrame & frame, std::vector<std::string> const & rows) {
  VxFileDialog dialog(VxFileDialog::eExportDir, 0, L"csv", L"runs.csv", OFN_OVERWRITEPROMPT,
                      L"Tables (*.csv)|*.csv|All files (*.*)|*.*||", &frame);
  if (dialog.DoModal() != IDOK) return;
  std::string bytes = "run\n";
  for (std::string const & row : rows) bytes += row + "\n";
  try {
    vx3::WriteFileAtomically(dialog.GetPathName().utf8_string(), bytes);
  } catch (Exception const & failure) {
    AfxMessageBox(wxString::FromUTF8(failure.Why()), MB_ICONHAND);
    return;
  }
  frame.SetStatusText(Tr("Saved ") + dialog.GetPathName());
}

void OnDefaultFolder(wxFrame & frame) {
  wxString const current = VxFileDialog::GetDefaultFolder(VxFileDialog::eProjectDir);
  CSelectFolderDialog dialog(0, current.wc_str(), 0, nullptr, &frame);
  dialog.SetTitle(Tr("Folder the file dialogs start in"));
  if (dialog.DoModal() != IDOK) return;
  VxFileDialog::SetAppDefaultFolder(dialog.GetSelectedPath().wc_str());
  VxFileDialog::SetDefaultFolder(VxFileDialog::eProjectDir, dialog.GetSelectedPath().wc_str());
  frame.SetStatusText(Tr("The file dialogs start in ") + dialog.GetSelectedPath());
}

void OnSearchFolders(wxFrame & frame) {
  wxString const stored =
      wxString::FromUTF8(AppProfile::GetProfileString(kSampleSection, kSearchFoldersEntry, ""));
  FolderCollectionDialog dialog(
      stored.wc_str(), Tr("Search Folders").wc_str(),
      Tr("The folders searched for measurement files, in order:").wc_str(), &frame);
  if (dialog.DoModal() != IDOK) return;
  AppProfile::WriteProfileString(kSampleSection, kSearchFoldersEntry,
                                 dialog.GetFolders().utf8_string().c_str());
}

}  // namespace

void AddFileCommands(wxFrame & frame, wxMenu & fileMenu,
                     std::function<std::vector<std::string>()> rows) {
  fileMenu.Append(kOpenCommand, Tr("Menu command", "&Open...\tCtrl+O"));
  fileMenu.Append(kSaveAsCommand, Tr("Menu command", "Save &As...\tCtrl+Shift+S"));
  fileMenu.AppendSeparator();
  fileMenu.Append(kDefaultFolderCommand, Tr("Menu command", "Default &Folder..."));
  fileMenu.Append(kSearchFoldersCommand, Tr("Menu command", "&Search Folders..."));
  fileMenu.AppendSeparator();
  frame.Bind(
      wxEVT_MENU, [&frame](wxCommandEvent &) { OnOpen(frame); }, kOpenCommand);
  frame.Bind(
      wxEVT_MENU, [&frame, rows = std::move(rows)](wxCommandEvent &) { OnSaveAs(frame, rows()); },
      kSaveAsCommand);
  frame.Bind(
      wxEVT_MENU, [&frame](wxCommandEvent &) { OnDefaultFolder(frame); }, kDefaultFolderCommand);
  frame.Bind(
      wxEVT_MENU, [&frame](wxCommandEvent &) { OnSearchFolders(frame); }, kSearchFoldersCommand);
}
