#pragma once
// The file dialog that remembers the last folder by kind of work: each
// kind keeps its folder in the application profile's section "Settings",
// and the dialog opens there. On OK the folder of the choice is stored for
// the dialog's kind, so each kind of work reopens where it was left.

#include <vector>

#include <wx/string.h>

#include "dialogs/CFileDialog.h"

class VxFileDialog : public CFileDialog {
public:
  enum EDirectory {
    eProjectDir = 0,    // "VxDefaultProjectDir"; any unknown kind too
    eWorkspaceDir = 1,  // "VxDefaultWorkspaceDir"
    eExportDir = 2,     // "VxDefaultExportDir"
    eImportDir = 3,     // "VxDefaultImportDir"
  };

  // `flags` get OFN_ENABLESIZING. A `size` above 0 gives the dialog its own
  // buffer of that many characters for the names of a multiple selection.
  VxFileDialog(EDirectory kind, int openFileDialog, wchar_t const * defaultExtension = nullptr,
               wchar_t const * fileName = nullptr,
               unsigned long flags = OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT,
               wchar_t const * filter = nullptr, wxWindow * parent = nullptr,
               unsigned long size = 0, int vistaStyle = 1);

  // A selection too long for the buffer counts as OK when the dialog has
  // its own buffer. On OK the folder of the choice is stored for the kind.
  int64_t DoModal() override;

  // The folder a kind of work starts in, ending in "/": the kind's stored
  // folder if it still exists, else the application's default folder,
  // else the user's documents folder.
  static wxString GetDefaultFolder(EDirectory kind);
  static void SetDefaultFolder(EDirectory kind, wchar_t const * folder);
  // The application-wide fallback ("VxDefaultApplicationOpenFileFolder").
  static void SetAppDefaultFolder(wchar_t const * folder);

  // Appends every name of the selection to `names`.
  void GetFileNames(std::vector<wxString> & names) const;
  void SetButtonText(unsigned int id, wchar_t const * text);

  EDirectory GetKind() const { return mKind; }
  wxString const & GetInitialFolder() const { return mInitialFolder; }
  bool HasOwnNameBuffer() const { return mOwnNameBuffer; }

  // The profile section and keys, for tools that look at them.
  static constexpr char const * kSection = "Settings";
  static char const * FolderKey(EDirectory kind);
  static constexpr char const * kAppDefaultFolderKey = "VxDefaultApplicationOpenFileFolder";

private:
  EDirectory mKind;
  wxString mInitialFolder;
  bool mOwnNameBuffer;
};
