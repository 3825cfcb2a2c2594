#include "properties/SelectFileDialog.h"

#include <wx/filename.h>

#include "platform/WinUser.h"
#include "utl/Translation.h"

namespace {

// The chooser starts in the file's folder with its name filled in.
wxFileName Split(wchar_t const * fileName) {
  return wxFileName(fileName == nullptr ? wxString() : wxString(fileName));
}

}  // namespace

SelectFileDialog::SelectFileDialog(wchar_t const * fileName, wxWindow * parent)
    : CFileDialog(0, nullptr, Split(fileName).GetFullName().wc_str(), OFN_HIDEREADONLY, nullptr,
                  parent) {
  wxFileName const name = Split(fileName);
  if (name.IsAbsolute()) m_ofn.lpstrInitialDir = name.GetPath();
  m_ofn.lpstrTitle = vx3::Tr("Select File");
  SetControlText(IDOK, vx3::Tr("Select File", "Select").wc_str());
}
