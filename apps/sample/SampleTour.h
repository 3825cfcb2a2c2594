#pragma once
// Help > Tour of the library: a page in an HTML view that lists the
// library's subsystems, each with "app:" links to the sample's commands
// that show it. The same table drives the tour walk (TourWalk.h).

#include <vector>

#include <wx/string.h>

class wxFrame;
class wxMenu;
class VxHtmlView;

struct TourStop {
  int subsystem;      // 1..13
  char const * link;  // the name after "app:"
  wxString label;     // the link's text, translated
  int command;        // the main frame's menu command it runs
  bool walked;        // false: the walk leaves it out (it ends the process)
};

// The subsystems' headings, index 0 for subsystem 1.
std::vector<wxString> TourSubsystems();
std::vector<TourStop> TourStops();
// The page, with one heading per subsystem and its links.
wxString BuildTourPage();

// Appends the command to `menu`; `frame` handles it and gets the links'
// commands.
void AddTourCommand(wxMenu & menu, wxFrame & frame);
// Opens the tour window over `owner`, whose commands the links run.
wxFrame * OpenTourWindow(wxFrame & owner);
VxHtmlView * TourView(wxFrame & tour);
