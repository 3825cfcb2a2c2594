#include "dialogs/VxFileDialog.h"

#include <glib.h>

#include "dialogs/FileSystemNames.h"
#include "frame/AppProfile.h"
#include "platform/WinUser.h"
#include "utl/Paths.h"
#include "utl/Utf.h"

namespace {

std::string Utf8(wchar_t const * text) { return text != nullptr ? vx3::WideToUtf8(text) : ""; }

std::string DocumentsFolder() {
  // The XDG documents folder (user-dirs.dirs, read anew: the user may have
  // moved it since), else the home folder.
  g_reload_user_special_dirs_cache();
  char const * documents = g_get_user_special_dir(G_USER_DIRECTORY_DOCUMENTS);
  return documents != nullptr ? documents : g_get_home_dir();
}

}  // namespace

VxFileDialog::VxFileDialog(EDirectory kind, int openFileDialog, wchar_t const * defaultExtension,
                           wchar_t const * fileName, unsigned long flags, wchar_t const * filter,
                           wxWindow * parent, unsigned long size, int vistaStyle)
    : CFileDialog(openFileDialog, defaultExtension, fileName,
                  static_cast<DWORD>(flags) | OFN_ENABLESIZING, filter, parent,
                  static_cast<DWORD>(size), vistaStyle),
      mKind(kind),
      mInitialFolder(GetDefaultFolder(kind)),
      mOwnNameBuffer(size > 0) {
  m_ofn.lpstrInitialDir = mInitialFolder;
}

char const * VxFileDialog::FolderKey(EDirectory kind) {
  switch (kind) {
    case eWorkspaceDir: return "VxDefaultWorkspaceDir";
    case eExportDir: return "VxDefaultExportDir";
    case eImportDir: return "VxDefaultImportDir";
    case eProjectDir:
    default: return "VxDefaultProjectDir";
  }
}

wxString VxFileDialog::GetDefaultFolder(EDirectory kind) {
  auto stored = [](char const * key) {
    return wxString::FromUTF8(AppProfile::GetProfileString(kSection, key, ""));
  };
  wxString folder = stored(FolderKey(kind));
  // A folder deleted since it was stored is passed over; so is a file that
  // has taken its name, where a chooser could not open.
  if (folder.empty() || VxFileExist(ToFileSystemPath(folder)) != VxFolder) {
    folder = stored(kAppDefaultFolderKey);
    if (folder.empty()) folder = FromFileSystemPath(DocumentsFolder());
  }
  if (!folder.empty() && !folder.EndsWith("/")) folder += "/";
  return folder;
}

void VxFileDialog::SetDefaultFolder(EDirectory kind, wchar_t const * folder) {
  AppProfile::WriteProfileString(kSection, FolderKey(kind), Utf8(folder).c_str());
}

void VxFileDialog::SetAppDefaultFolder(wchar_t const * folder) {
  AppProfile::WriteProfileString(kSection, kAppDefaultFolderKey, Utf8(folder).c_str());
}

int64_t VxFileDialog::DoModal() {
  int64_t result = CFileDialog::DoModal();
  if (result == IDCANCEL && CommDlgExtendedError() == FNERR_BUFFERTOOSMALL && mOwnNameBuffer)
    result = IDOK;
  if (result != IDOK) return result;
  // The folder of the first name stands for the whole selection: a
  // multiple selection comes from one folder.
  std::string const folder = VxGetDirectory(ToFileSystemPath(GetPathName()));
  if (!folder.empty()) SetDefaultFolder(mKind, FromFileSystemPath(folder).wc_str());
  return result;
}

void VxFileDialog::GetFileNames(std::vector<wxString> & names) const {
  POSITION position = GetStartPosition();
  while (position != nullptr) names.push_back(GetNextPathName(position));
}

void VxFileDialog::SetButtonText(unsigned int id, wchar_t const * text) {
  SetControlText(static_cast<int>(id), text);
}
