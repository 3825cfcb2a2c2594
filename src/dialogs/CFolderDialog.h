#pragma once
// The shell's browser of folders, computers and printers, as Linux offers
// them: folders through the toolkit's folder chooser
// (dialogs/NativeChoosers.h), printers from CUPS (dialogs/PrinterList.h).
// There is no browsing of the network for computers here: that kind says
// so and ends with IDCANCEL.

#include <string>

#include <wx/string.h>

class wxWindow;

class CFolderDialog {
public:
  enum BrowseType { BrowseForComputer = 0, BrowseForFolder = 1, BrowseForPrinter = 2 };

  CFolderDialog(wxWindow * parent, wxString const & title, BrowseType type);

  // IDOK with a choice, IDCANCEL otherwise.
  int DoModal();
  // The folder (no trailing separator) or the printer chosen.
  wxString GetFolderName() const { return mFolderName; }

  // The browser's flags as Windows knew them (BIF_*), and the special
  // folder it starts at (CSIDL_*; 0 for the file system).
  unsigned int GetBrowseFlags() const;
  int GetRootFolder() const;

  // Where a folder browser starts; empty: the toolkit's choice.
  void SetInitialFolder(wxString const & folder) { mInitialFolder = folder; }

private:
  int BrowseFolders();
  int BrowsePrinters();

  wxWindow * mParent;
  wxString mTitle;
  BrowseType mType;
  wxString mInitialFolder;
  wxString mFolderName;
};

// The folder browser with `title` (empty or null: "Browse for a folder."),
// starting at `start` or, when that is gone, at its nearest folder still
// there. On a choice the folder replaces `path` and the result is true;
// otherwise `path` is left as it was. `path` and `start` are the file
// system's bytes (UTF-8 for every name that is UTF-8 at all).
bool BrowseForFolder(std::string & path, wxWindow * parent = nullptr, char const * title = nullptr,
                     char const * start = nullptr);
