#include "dialogs/CFileDialog.h"

#include <wx/filename.h>

#include "dialogs/FileDialogFilter.h"
#include "dialogs/FileSystemNames.h"
#include "dialogs/NativeChoosers.h"
#include "platform/WinUser.h"
#include "utl/Paths.h"

namespace {

thread_local DWORD gLastError = CDERR_GENERALCODES;

}  // namespace

DWORD CommDlgExtendedError() { return gLastError; }

CFileDialog::CFileDialog(int openFileDialog, wchar_t const * defaultExtension,
                         wchar_t const * fileName, DWORD flags, wchar_t const * filter,
                         wxWindow * parent, DWORD size, int)
    : m_bOpenFileDialog(openFileDialog != 0),
      mFileName(fileName != nullptr ? fileName : L""),
      mWildcard(ToChooserWildcard(filter)),
      mParent(parent) {
  m_ofn.Flags = flags;
  if (defaultExtension != nullptr) m_ofn.lpstrDefExt = defaultExtension;
  if (size > 0) m_ofn.nMaxFile = size;
}

int64_t CFileDialog::DoModal() {
  FileChooserRequest request;
  request.open = m_bOpenFileDialog;
  request.parent = mParent;
  request.title = m_ofn.lpstrTitle;
  request.acceptLabel = mAcceptLabel;
  request.initialFolder = m_ofn.lpstrInitialDir;
  request.fileName = mFileName;
  request.wildcard = mWildcard;
  request.filterIndex = m_ofn.nFilterIndex > 0 ? static_cast<int>(m_ofn.nFilterIndex) - 1 : 0;
  request.multiple = (m_ofn.Flags & OFN_ALLOWMULTISELECT) != 0;
  request.overwritePrompt = (m_ofn.Flags & OFN_OVERWRITEPROMPT) != 0;
  request.fileMustExist = (m_ofn.Flags & OFN_FILEMUSTEXIST) != 0;

  gLastError = CDERR_GENERALCODES;
  mNames.clear();
  FileChooserAnswer const answer = RunFileChooser(request);
  if (!answer.accepted || answer.paths.empty()) return IDCANCEL;

  mNames = answer.paths;
  if (!m_bOpenFileDialog && !m_ofn.lpstrDefExt.empty()) {
    wxFileName name(mNames.front());
    if (!name.HasExt()) mNames.front() += "." + m_ofn.lpstrDefExt;
  }
  m_ofn.nFilterIndex = static_cast<DWORD>(answer.filterIndex + 1);
  if (WindowsBufferLength() > m_ofn.nMaxFile) {
    gLastError = FNERR_BUFFERTOOSMALL;
    return IDCANCEL;
  }
  return IDOK;
}

size_t CFileDialog::WindowsBufferLength() const {
  if (mNames.size() == 1) return mNames.front().length() + 1;
  size_t length = GetFolderPath().length() + 1;
  for (wxString const & path : mNames) length += wxFileName(path).GetFullName().length() + 1;
  return length + 1;
}

wxString CFileDialog::GetPathName() const { return mNames.empty() ? wxString() : mNames.front(); }

wxString CFileDialog::GetFileName() const { return wxFileName(GetPathName()).GetFullName(); }

wxString CFileDialog::GetFileExt() const { return wxFileName(GetPathName()).GetExt(); }

wxString CFileDialog::GetFileTitle() const { return wxFileName(GetPathName()).GetName(); }

wxString CFileDialog::GetFolderPath() const {
  if (mNames.empty()) return wxString();
  return FromFileSystemPath(VxGetDirectory(ToFileSystemPath(mNames.front())));
}

POSITION CFileDialog::GetStartPosition() const {
  return mNames.empty() ? nullptr : reinterpret_cast<POSITION>(uintptr_t{1});
}

wxString CFileDialog::GetNextPathName(POSITION & position) const {
  auto const index = reinterpret_cast<uintptr_t>(position);
  if (index == 0 || index > mNames.size()) {
    position = nullptr;
    return wxString();
  }
  position = index < mNames.size() ? reinterpret_cast<POSITION>(index + 1) : nullptr;
  return mNames[index - 1];
}

void CFileDialog::SetControlText(int id, wchar_t const * text) {
  if (id == IDOK) mAcceptLabel = text != nullptr ? text : L"";
}
