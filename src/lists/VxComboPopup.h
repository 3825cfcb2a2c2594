#pragma once
// The drop-down list of VxComboBox: the owner-drawn combo's list, but as
// high as the combo asks for (a short list still shows two rows and the
// combo's margin) and as wide as its drop width.

#include <wx/odcombo.h>

class VxComboPopup : public wxVListBoxComboPopup {
public:
  // The height of one row as the list lays it out.
  int GetRowHeight() const;
  wxSize GetAdjustedSize(int minWidth, int prefHeight, int maxHeight) override;
};
