#pragma once
// Work off the main thread in the sample:
//  - Tools > Run in background: a fit on a worker thread while the user
//    waits behind the barber-pole dialog, which Cancel stops early;
//  - Tools > Failing background run: work whose failure comes back to the
//    main thread in its own class and is told to the user;
//  - Tools > Background result: a sum computed on a low-priority thread,
//    whose completion message to the main window puts the result in the
//    status bar while the window stays usable.

#include <chrono>

#include <wx/string.h>

class wxFrame;
class wxMenu;
class wxWindow;

// The message the result's thread posts to the main window when it is done
// (in the application's range, above the library's).
constexpr unsigned kBackgroundResultMessage = 0x8001;

struct BackgroundPlan {
  int slices = 60;  // the fit's slices; Cancel ends it after the current one
  std::chrono::milliseconds slice{50};
};

// Runs the fit of `plan` behind the waiting dialog and says how it ended:
// "Background run finished: 60 slices." or "Background run cancelled after
// 3 of 60 slices."
wxString RunInBackground(wxWindow * parent, BackgroundPlan const & plan);

// The status text of the result's thread: "Background result: 1.64493".
wxString DescribeBackgroundResult(float result);

// Appends the three commands to `menu`; `frame` handles them and receives
// the result's message.
void AddBackgroundCommands(wxMenu & menu, wxFrame & frame);
