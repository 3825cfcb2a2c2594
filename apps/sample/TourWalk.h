#pragma once
// The tour walk: runs every command of the tour (SampleTour.h) on the main
// frame, writes a PNG of each window a command opens, and closes it again:
// modal dialogs are cancelled once painted, other windows closed. It notes
// what a person would call broken: a command nobody handles, a wx assertion,
// the internal-error dialog, a window that never painted. The file choosers
// and the print dialog are answered "cancelled" without showing (the
// toolkit's own do not end on request). Stops that end the process or start
// another program are not walked.
//
//   talvo-sample --tour DIR      (scripts/run-sample --tour DIR)

#include <string>
#include <vector>

#include <wx/string.h>

class wxFrame;

struct TourWalkResult {
  struct Shot {
    std::string link;      // the tour stop that opened it
    wxString windowClass;  // what opened, e.g. "CustomMessageBoxDlg"
    wxString title;
    wxString file;  // the PNG; empty for a chooser answered unseen
  };
  std::vector<std::string> walked;  // the stops, in order
  std::vector<Shot> shots;
  std::vector<wxString> failures;  // "<link>: what went wrong"
};

// Walks the tour's stops on `frame`, pictures into `folder` (which must
// exist). Returns when every stop is done and every window it opened is
// closed.
TourWalkResult WalkTour(wxFrame & frame, wxString const & folder);
