#pragma once
// The sample's "Favourites > Add Command...": opens the favourites pane and
// over it the dialog that lists the sample's menus and tool bar, from which
// a command is added to the pane's favourites.

class wxFrame;
class wxMenu;

// Appends the command to `menu` and binds it on `frame`.
void AddAddCommandCommand(wxMenu & menu, wxFrame & frame);
