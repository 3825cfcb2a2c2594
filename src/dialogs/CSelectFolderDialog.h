#pragma once
// The folder picker of the library: a folder tree, the current folder in an
// edit the user may type into, "Select" and "Cancel". The folder handed
// back ends with "/".
//
// On Select the typed folder (or the tree's, when the edit is empty) is
// checked: a doubled separator is refused unless SetAllowDoubleSlash(true)
// was called; an existing folder is taken; for a missing one the user is
// asked whether to create it. No takes the path as typed; Yes takes it only
// if the folder has come into being meanwhile: this dialog creates nothing,
// a caller that wants a new folder creates it. A path that cannot be
// reached (too long, a file in the way, no permission) is refused with the
// reason.

#include <string>

#include <wx/string.h>

#include "dialogs/VxDialog.h"

class wxGenericDirCtrl;
class wxTreeEvent;

class CSelectFolderDialog : public VxDialog {
public:
  static constexpr unsigned int kTemplateId = 13393;
  // Control ids (kept from the file dialog the picker was first built on).
  static constexpr int kTreeId = 1120;
  static constexpr int kFolderLabelId = 1090;
  static constexpr int kFolderEditId = 102;
  static constexpr int kTypeLabelId = 1089;
  static constexpr int kTypeChoiceId = 1136;

  // `showFiles` 0 shows folders only; otherwise files are shown too, through
  // `filter` (the file dialog's form, "Text (*.txt)|*.txt||") when given.
  // A null `initialFolder` starts in the working folder.
  CSelectFolderDialog(int showFiles = 0, wchar_t const * initialFolder = nullptr,
                      unsigned long flags = 0, wchar_t const * filter = nullptr,
                      wxWindow * parent = nullptr);
  ~CSelectFolderDialog() override;

  void SetSelectedPath(wchar_t const * path);
  wxString GetSelectedPath() const { return mSelectedPath; }
  // The title shown from the next run on (default "Select folder").
  void SetTitle(wxString const & title) override;
  int DoModal() override;
  // Sets whether paths with a doubled separator are taken, for every
  // picker; returns the former setting.
  static bool SetAllowDoubleSlash(bool allow);

protected:
  bool OnInitDialog() override;
  void OnOK() override;
  // The tree moved to another folder.
  virtual void OnFolderChange();

private:
  void CreateTree();
  void ShowFileTypes();
  void AnchorControls();
  wxString TreeFolder() const;
  void OnExpanding(wxTreeEvent & event);
  void OnTypeChosen();
  void Accept(std::string const & folder);

  static bool mbAllowDoubleSlash;

  bool mShowFiles;
  wxString mInitialFolder;
  wxString mWildcard;
  wxString mTitle;
  wxString mSelectedPath;
  wxGenericDirCtrl * mTree = nullptr;
  bool mBuilding = false;  // the template is setting its own title
};
