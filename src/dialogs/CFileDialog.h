#pragma once
// The file dialog of the Windows vocabulary on the toolkit's file chooser
// (dialogs/NativeChoosers.h). The settings live in m_ofn as on Windows;
// DoModal hands them to the chooser and keeps the names chosen.
//
// The names of a selection are measured as Windows lays them into its
// buffer (the folder, then each name, each ended by a null, and a closing
// null; one full path for a single choice). A selection longer than
// m_ofn.nMaxFile ends the dialog with IDCANCEL and FNERR_BUFFERTOOSMALL
// from CommDlgExtendedError, as on Windows; the names are kept all the same.

#include <cstdint>
#include <vector>

#include <wx/string.h>

#include "platform/CommDlg.h"

class wxWindow;

struct OPENFILENAME {
  DWORD Flags = 0;
  wxString lpstrInitialDir;
  wxString lpstrTitle;
  wxString lpstrDefExt;    // added to a saved name that has no extension
  DWORD nFilterIndex = 1;  // 1-based, as on Windows
  // Characters the names may take. Linux paths reach PATH_MAX (4096), not
  // Windows' 260, so one path always fits.
  DWORD nMaxFile = 4096;
};

// The error of the last file dialog that ended on this thread.
DWORD CommDlgExtendedError();

class CFileDialog {
public:
  CFileDialog(int openFileDialog, wchar_t const * defaultExtension = nullptr,
              wchar_t const * fileName = nullptr,
              DWORD flags = OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT,
              wchar_t const * filter = nullptr, wxWindow * parent = nullptr, DWORD size = 0,
              int vistaStyle = 1);
  virtual ~CFileDialog() = default;

  // IDOK or IDCANCEL.
  virtual int64_t DoModal();

  // The first name chosen, in full.
  wxString GetPathName() const;
  wxString GetFileName() const;
  wxString GetFileExt() const;
  wxString GetFileTitle() const;
  // The folder of the names chosen, without a trailing separator.
  wxString GetFolderPath() const;
  // Walks the names of a (multiple) selection; null when there is none.
  POSITION GetStartPosition() const;
  wxString GetNextPathName(POSITION & position) const;

  // Sets the label of a button of the chooser; only IDOK (1) has one here.
  void SetControlText(int id, wchar_t const * text);
  wxWindow * GetParentWindow() const { return mParent; }

  OPENFILENAME m_ofn;
  bool m_bOpenFileDialog;

protected:
  std::vector<wxString> const & Names() const { return mNames; }

private:
  size_t WindowsBufferLength() const;

  wxString mFileName;
  wxString mWildcard;
  wxString mAcceptLabel;
  wxWindow * mParent;
  std::vector<wxString> mNames;
};
