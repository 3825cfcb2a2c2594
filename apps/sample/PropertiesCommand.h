#pragma once
// The sample's Properties window (View menu): the library's modeless sheet
// following the run list's selection. A run in use shows "Run" and
// "Comment", a retired run "Comment" and "Retirement"; the comment page is
// the same page for both, kept as it is when the selection moves from one
// kind of run to the other. An applied comment goes into the list.

class RunList;
class wxFrame;
class wxMenu;

// Appends the command to `menu`; `frame` handles it. The pages live as long
// as the frame's handlers.
void AddPropertiesCommand(wxMenu & menu, wxFrame & frame, RunList & runs);
