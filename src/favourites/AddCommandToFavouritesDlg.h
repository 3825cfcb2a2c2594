#pragma once
// The modeless dialog with which the user picks application commands for
// the favourites pane: the application's menus (menu resources) and its
// main window's tool bars on the left, the commands of the chosen one with
// their icons on the right. Adding a command gives a FavouriteCommandItem
// to the tree. Template 16077.

#include <wx/imaglist.h>
#include <wx/weakref.h>

#include <memory>
#include <vector>

#include "dialogs/ResizableDialog.h"
#include "favourites/FavouritesManager.h"

class CommandsListBox;
class FavouritesTree;
class wxListBox;
class wxMenu;
class wxMenuBar;
class wxToolBar;

class AddCommandToFavouritesDlg : public CResizableDialog {
public:
  enum Control : int {
    kMenusList = 16050,
    kCommandsList = 16051,
    kSelectedCommand = 16044,
    kDescription = 16063,
    kAddButton = 16010,
  };
  static constexpr unsigned int kTemplate = 16077;
  // The recent-files entry, which a favourite cannot run.
  static constexpr unsigned int kRecentFileCommand = 57616;

  // Copies the menu ids. The tree must outlive the dialog.
  AddCommandToFavouritesDlg(FavouritesTree * tree, unsigned int const * menuIds, unsigned int count,
                            wxWindow * parent);
  ~AddCommandToFavouritesDlg() override;

  // Makes the window from its template and fills it; false when the
  // template cannot be built.
  bool Create();

  // The handlers, public so that tests drive them as a person would.
  void OnMenusSelection();
  void OnCommandsSelection();
  void OnCommandsDoubleClick();
  void OnAdd();

  wxListBox & GetMenusList() const { return *mMenus; }
  CommandsListBox & GetCommandsList() const { return *mCommands; }
  wxString GetSelectedCommandText() const { return mSelectedCommand; }
  bool GetAdded() const { return mAdded; }
  FavouritesTree * GetTree() const { return mTree; }

private:
  bool OnInitDialog();
  void ShowRow(int row);
  void FillFromMenu(wxMenu const & menu);
  void FillFromToolBar(wxToolBar const & bar);
  void UpdateTexts();

  FavouritesTree * mTree;
  std::vector<unsigned int> mMenuIds;
  wxListBox * mMenus = nullptr;
  CommandsListBox * mCommands = nullptr;
  wxString mDescription;
  wxString mSelectedCommand;
  std::unique_ptr<wxMenuBar> mMenu;  // the menu resource in hand
  wxMenu * mCurrentMenu = nullptr;   // null for a tool bar row
  bool mAdded = false;
  wxImageList mImages;
  CommandImageMap mIconMap;
  std::vector<wxWeakRef<wxToolBar>> mToolBars;  // the tool bar rows, in order
};

// Opens the dialog for the commands the tree was given
// (FavouritesTree::EnableCommandItems), or raises the one already open for
// that tree. Null when the tree has no commands or the template is missing.
AddCommandToFavouritesDlg * ShowAddCommandDialog(FavouritesTree & tree);
