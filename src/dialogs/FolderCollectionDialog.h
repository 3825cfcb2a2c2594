#pragma once
// Edits a list of folders kept in the form "/a;/b;" (each path ended by
// ";"). One row a folder; the last row is always empty: it is where the
// user types a new folder. Rows are edited in place, chosen with the folder
// browser, deleted and moved; nothing moves past the empty row. OK takes
// the list only when every row names an existing folder.

#include <string>
#include <vector>

#include <wx/string.h>

#include "dialogs/VxDialog.h"

class wxListCtrl;
class wxListEvent;

class FolderCollectionDialog : public VxDialog {
public:
  static constexpr unsigned int kTemplateId = 13390;
  static constexpr unsigned int kRowImagesId = 13391;     // row icon, pressed browse
  static constexpr unsigned int kButtonImagesId = 13392;  // delete, up, down
  static constexpr int kPromptId = 1000;
  static constexpr int kListId = 1001;
  static constexpr int kBrowseId = 1002;
  static constexpr int kDeleteId = 1003;
  static constexpr int kUpId = 1004;
  static constexpr int kDownId = 1005;

  FolderCollectionDialog(wchar_t const * folders, wchar_t const * title, wchar_t const * prompt,
                         wxWindow * parent = nullptr);

  // The list as given, or as the user left it with OK.
  wxString GetFolders() const { return mFolders; }

  // The rows' texts while the dialog runs (empty otherwise).
  std::vector<wxString> GetRows() const;

protected:
  bool OnInitDialog() override;
  void OnOK() override;

  void AddRow(wxString const & text);
  // Removes the empty rows but the last, and makes sure an empty row ends
  // the list.
  void CheckEmptyRows();

  void OnItemButtonClick();
  void OnPathChanged(wxListEvent & event);
  void OnDelete();
  void OnUp();
  void OnDown();

private:
  wxListCtrl * List() const;
  long SelectedRow() const;
  void SelectRow(long row);
  void SwapWithRow(long neighbour);
  void SetImages();
  void BindControls();

  wxString mFolders;
  wxString mTitle;
  wxString mPrompt;
};
