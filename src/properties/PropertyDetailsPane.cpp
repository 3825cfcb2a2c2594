#include "properties/PropertyDetailsPane.h"

#include <wx/dcbuffer.h>

#include "properties/PropertyListCtrl.h"
#include "properties/PropertyListGeometry.h"

PropertyDetailsPane::PropertyDetailsPane(PropertyListCtrl * list)
    : wxWindow(list, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE), mList(list) {
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  Bind(wxEVT_PAINT, &PropertyDetailsPane::OnPaint, this);
  // A click on the pane selects nothing; the focus stays where it is.
  Bind(wxEVT_LEFT_DOWN, [](wxMouseEvent &) {});
}

void PropertyDetailsPane::Place() {
  int width = 0;
  int rowsHeight = 0;
  mList->GetClientSize(&width, &rowsHeight);  // the rows' area, without the pane
  SetSize(0, rowsHeight, width, PropertyListGeometry::kDetailsHeight);
}

void PropertyDetailsPane::OnPaint(wxPaintEvent &) {
  wxAutoBufferedPaintDC dc(this);
  mList->DrawDetails(dc, wxRect(GetClientSize()));
}
