#pragma once
// The sample's "Date format..." command: asks how the dates of a sample
// import are written (VxTimeUtl::GetUserFormatString), proposing the format
// given last; a format that is not valid shows its boxes and the question
// comes again. The formats given are remembered across runs by the dialog.

#include <string>

class wxMenu;
class wxWindow;

// The date text the question shows.
extern char const kSampleDateText[];

// Appends the command to `menu`; `frame` handles it and, when it is a frame,
// says in its status bar which format was chosen.
void AddDateFormatCommand(wxMenu & menu, wxWindow & frame);

// Runs the question once; the format given, or "" when cancelled.
std::string AskSampleDateFormat();
