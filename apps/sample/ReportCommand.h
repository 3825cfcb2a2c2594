#pragma once
// The sample's "Report" command: a window with an HTML view of the runs,
// styled by its own style sheet, whose links run the sample's commands
// ("app:RunCalculation", "app:DateFormat"); the view's menu, Ctrl+F and
// Save As work in it.

class wxFrame;
class wxMenu;
class wxWindow;
class VxHtmlView;

// Appends the command to `menu`; `frame` handles it and gets the links'
// commands.
void AddReportCommand(wxMenu & menu, wxWindow & frame);

// Opens the report window over `owner`; the window is `owner`'s child.
wxFrame * OpenReportWindow(wxWindow & owner);
// The view of a report window.
VxHtmlView * ReportView(wxFrame & report);
