#pragma once
// The sample's "Favourites pane" (Tools menu): the library's favourites view
// in a window of its own. It starts with some of the sample's commands, a
// folder of documents that asks for dropped files while it is empty, and a
// folder of reports; the user drags rows to reorder them, drops files from
// the desktop, makes rows bold, and exports or imports the collection from
// the context menu (with Ctrl held). The pane keeps its favourites in the
// user's data folder between runs.

#include <wx/string.h>

class FavouritesTree;
class wxFrame;
class wxMenu;

// Appends the command to `menu`; `frame` handles it and owns the window.
void AddFavouritesPaneCommand(wxMenu & menu, wxFrame & frame);

// Opens the window (or raises the open one) and returns it.
wxFrame * ShowFavouritesPane(wxFrame & owner);

// The tree of a window ShowFavouritesPane returned, else null.
FavouritesTree * FavouritesPaneTree(wxFrame & pane);

// Where the pane keeps its favourites.
wxString SampleFavouritesFile();
