#pragma once
// The sample's list of measurement runs: sorted in natural order (numbers by
// value) and narrowed by the filter box as the user types.

#include <string>
#include <vector>

#include <wx/panel.h>

class wxVListBox;
class wxSearchCtrl;

class RunListPanel : public wxPanel {
public:
  explicit RunListPanel(wxWindow * parent);

  // What the status bar says about the list.
  wxString Summary() const;
  void SetFilter(wxString const & filter);
  std::vector<std::string> const & Shown() const { return mShown; }

private:
  void ApplyFilter();

  std::vector<std::string> mRuns;
  std::vector<std::string> mShown;
  wxSearchCtrl * mFilter = nullptr;
  wxVListBox * mList = nullptr;
};
