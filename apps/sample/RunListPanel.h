#pragma once
// The sample's list of measurement runs: sorted in natural order (numbers by
// value) and narrowed by the filter box as the user types; the list itself
// is RunList (sort arrows, checks, copying, an editable comment).

#include <string>
#include <vector>

#include <wx/panel.h>

class RunList;
class wxSearchCtrl;

class RunListPanel : public wxPanel {
public:
  explicit RunListPanel(wxWindow * parent);

  // What the status bar says about the list.
  wxString Summary() const;
  void SetFilter(wxString const & filter);
  std::vector<std::string> const & Shown() const { return mShown; }
  RunList & List() const { return *mList; }
  // Tools > Copy runs: the checked runs, or all shown, to the clipboard as a
  // spreadsheet takes them; returns what the status bar says.
  wxString CopyRuns();

private:
  void ApplyFilter();

  std::vector<std::string> mRuns;
  std::vector<std::string> mShown;
  wxSearchCtrl * mFilter = nullptr;
  RunList * mList = nullptr;
};
