#pragma once
// The sample's "Messages > Ask" menu: the input dialog for a number, for a
// name with a fit model beside it, for a fit model alone and for a filter
// that a validator checks; the item selection for one run, for several and
// for several with an export format; and the class or phase choice. What
// the user gave shows in the frame's status bar.

class wxFrame;
class wxMenu;

void AppendAskCommands(wxMenu & menu, wxFrame & frame);
