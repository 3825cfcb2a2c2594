#pragma once
// The sample's "Open favourites" (Tools menu): opens three favourites at
// once as the favourites tree would, a command (the tree view), a file the
// sample keeps in the temporary folder and a file that has gone, so that
// one dialog tells what could not be opened.

#include <wx/string.h>

class wxFrame;
class wxMenu;

// Appends the command to `menu` and binds it on `frame`.
void AddOpenFavouritesCommand(wxMenu & menu, wxFrame & frame);

// The two files of the command: the one it keeps and the one it removes.
wxString SampleFavouriteFile();
wxString SampleMissingFavouriteFile();
