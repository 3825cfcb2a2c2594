#pragma once
// The sample's "Tools > Calibration list..." dialog: the laboratory's instruments
// in a report list with check boxes (in use or not), sortable by a click on
// a heading, overdue calibrations painted red through custom draw, and a
// line that counts the instruments in use.

#include <wx/dialog.h>

#include <vector>

#include "platform/commctrl/CListCtrl.h"

class wxMenu;
class wxStaticText;

class CalibrationListDialog : public wxDialog {
public:
  struct Instrument {
    wxString name;
    wxString kind;
    wxString calibrated;  // ISO date
    int runs;
    bool overdue;
    bool inUse;
  };

  explicit CalibrationListDialog(wxWindow * parent);

  CListCtrl & GetList() { return *mList; }
  wxString GetSummary() const;
  // The instruments as the list now shows them, by name.
  std::vector<wxString> ShownNames() const;

private:
  void OnListNotify(NotifyEvent & event);
  void SortBy(int column);

  std::vector<Instrument> mInstruments;  // item data: the index here
  CListCtrl * mList = nullptr;
  wxStaticText * mSummary = nullptr;
  int mSortColumn = -1;
  bool mAscending = true;
};

// Appends "Calibration list..." to `menu`; `frame` handles it.
void AddCalibrationListCommand(wxMenu & menu, wxWindow & frame);
