#include "dialogs/ResizableDialog.h"

CResizableDialog::CResizableDialog() : CResizableLayout(this), CResizableMinMax(this) {
  Bind(wxEVT_SIZE, &CResizableDialog::OnSize, this);
}

void CResizableDialog::OnSize(wxSizeEvent & event) {
  ArrangeLayout();
  event.Skip();  // a sizer, if the dialog has one, lays out as well
}
