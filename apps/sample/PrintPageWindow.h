#pragma once
// The sample's print page (File menu): the library's backstage print page
// in a window of its own, previewing the run list as it would be printed,
// with the page orientation and the lists-in-colour switch. The window is
// the backstage view: its print button closes it and hands the print
// command to the main window.

#include <functional>
#include <string>
#include <vector>

class wxFrame;
class wxMenu;

// Appends the command to `fileMenu`; `frame` handles it and owns the
// window; `rows` gives the runs the list shows, `isRetired` which of them
// are retired.
void AddPrintPageCommand(wxMenu & fileMenu, wxFrame & frame,
                         std::function<std::vector<std::string>()> const & rows,
                         bool (*isRetired)(std::string const &));
