#pragma once
// The toolkit's own file and folder choosers (GTK's file chooser), each
// reached through a replaceable function: dialogs of the library ask
// through RunFileChooser and RunFolderChooser, and a test puts its own
// answers in their place.

#include <functional>
#include <vector>

#include <wx/string.h>

class wxWindow;

struct FileChooserRequest {
  bool open = true;  // false: a save dialog
  wxWindow * parent = nullptr;
  wxString title;        // empty: the toolkit's
  wxString acceptLabel;  // empty: the toolkit's ("Open", "Save")
  wxString initialFolder;
  wxString fileName;
  wxString wildcard;    // wx form: "Text files|*.txt|All files|*"; empty: every file
  int filterIndex = 0;  // 0-based
  bool multiple = false;
  bool overwritePrompt = false;
  bool fileMustExist = false;
};

struct FileChooserAnswer {
  bool accepted = false;
  std::vector<wxString> paths;  // full paths, in the order chosen
  int filterIndex = 0;
};

using FileChooserFunction = std::function<FileChooserAnswer(FileChooserRequest const &)>;

struct FolderChooserRequest {
  wxWindow * parent = nullptr;
  wxString title;
  wxString initialFolder;
};

struct FolderChooserAnswer {
  bool accepted = false;
  wxString path;
};

using FolderChooserFunction = std::function<FolderChooserAnswer(FolderChooserRequest const &)>;

FileChooserAnswer RunFileChooser(FileChooserRequest const & request);
FolderChooserAnswer RunFolderChooser(FolderChooserRequest const & request);

// Install `function` (empty: the native one again) and return the former.
FileChooserFunction SetFileChooserFunction(FileChooserFunction function);
FolderChooserFunction SetFolderChooserFunction(FolderChooserFunction function);

// The native choosers, modal on the GUI thread (wxFileDialog, wxDirDialog).
FileChooserAnswer NativeFileChooser(FileChooserRequest const & request);
FolderChooserAnswer NativeFolderChooser(FolderChooserRequest const & request);
