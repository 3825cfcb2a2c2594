#pragma once
// A dialog the user can resize: its controls follow their anchors
// (ResizableLayout.h) and its size stays within the bounds it sets.

#include <wx/dialog.h>

#include "dialogs/ResizableLayout.h"

class CResizableDialog : public wxDialog, public CResizableLayout, public CResizableMinMax {
public:
  CResizableDialog();

  // Style bits a resizable dialog adds to its template's.
  static constexpr long kResizableStyle = wxRESIZE_BORDER;

private:
  void OnSize(wxSizeEvent & event);
};
