#include "AddCommandMenu.h"

#include <wx/frame.h>
#include <wx/menu.h>

#include "FavouritesPane.h"
#include "SampleCommands.h"
#include "favourites/AddCommandToFavouritesDlg.h"
#include "utl/Translation.h"

void AddAddCommandCommand(wxMenu & menu, wxFrame & frame) {
  menu.Append(kAddCommandToFavouritesCommand, vx3::Tr("Menu command", "&Add Command..."));
  frame.Bind(
      wxEVT_MENU,
      [&frame](wxCommandEvent &) {
        wxFrame * const pane = ShowFavouritesPane(frame);
        if (FavouritesTree * const tree = pane != nullptr ? FavouritesPaneTree(*pane) : nullptr)
          ShowAddCommandDialog(*tree);
      },
      kAddCommandToFavouritesCommand);
}
