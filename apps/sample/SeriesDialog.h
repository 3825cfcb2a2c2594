#pragma once
// The sample's "Tools > Series..." window: series, their runs and each
// run's samples in a tree list of six columns. A click on a heading sorts
// the runs of every series (Run 9 before Run 10); calibration series are
// group rows, series are bold, failed runs red; the columns are wider than
// the window, so it scrolls sideways, and they follow the window's width.
// Ctrl+C puts the selected rows on the clipboard for any editor.

#include <wx/dialog.h>

class VxTreeListCtrl;
class wxMenu;

class SeriesDialog : public wxDialog {
public:
  static constexpr unsigned kTemplate = 7300;
  static constexpr unsigned kTreeList = 7301;

  explicit SeriesDialog(wxWindow * parent);
  ~SeriesDialog() override;

  VxTreeListCtrl & GetTreeList() { return *mTreeList; }

private:
  void Fill();

  VxTreeListCtrl * mTreeList;
};

// Appends "Series..." to `menu`; `frame` handles it.
void AddSeriesCommand(wxMenu & menu, wxWindow & frame);
