#pragma once
// The sample's time grid dialog (Tools > Time grid...): when a series of
// measurements starts, on a five-minute grid, and how often it repeats, in
// steps of 15 seconds from 30 seconds to two hours.

#include <wx/dialog.h>

class RestrictedTimeCtrl;
class TimeSpanCtrl;
class wxFrame;
class wxMenu;
class wxStaticText;

class TimeGridDialog : public wxDialog {
public:
  explicit TimeGridDialog(wxWindow * parent);

  RestrictedTimeCtrl & Start() { return *mStart; }
  TimeSpanCtrl & Interval() { return *mInterval; }
  // "Starts at 10:05, repeats every 00:15:00."
  wxString Summary() const;

private:
  RestrictedTimeCtrl * mStart;
  TimeSpanCtrl * mInterval;
  wxStaticText * mSummary;
};

// Appends the command to `menu`; `frame` runs the dialog and tells the
// chosen series in its status bar.
void AddTimeGridCommand(wxMenu & menu, wxFrame & frame);
