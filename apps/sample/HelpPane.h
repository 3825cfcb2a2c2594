#pragma once
// The sample's help pane: a window with a help control showing the
// sample's own help file (SampleHelp.chm, built beside the executables),
// whose "app:RunCalculation" link runs the calculation in the main window.

class CHHCtrl;
class wxFrame;
class wxMenu;

// The help file, found beside the program.
constexpr wchar_t const * kSampleHelpFile = L"SampleHelp.chm";
// The window's name, by which tests find it.
constexpr char const * kHelpPaneName = "SampleHelpPane";

// Opens the pane over `frame`; its help control, or null without a browser.
CHHCtrl * OpenHelpPane(wxFrame & frame);

// Appends the command to `menu`; `frame` handles it.
void AddHelpPaneCommand(wxMenu & menu, wxFrame & frame);
