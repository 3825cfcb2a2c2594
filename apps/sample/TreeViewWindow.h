#pragma once
// The sample's "Tree view" window (Tools menu): the library's platform tree
// on its own, with the runs of two projects, check boxes, label editing and
// type-ahead. What the tree tells its parent (selection, expansion, checks,
// edited labels) is shown in the window's status bar.

class wxFrame;
class wxMenu;
class wxWindow;

// Appends the command to `menu`; `frame` handles it and owns the window.
void AddTreeViewCommand(wxMenu & menu, wxFrame & frame);

// Opens the window (or raises the open one) and returns it.
wxFrame * ShowTreeViewWindow(wxFrame & owner);
