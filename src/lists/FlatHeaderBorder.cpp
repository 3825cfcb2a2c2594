#include "lists/FlatHeaderBorder.h"

#include <wx/dc.h>

#include "lists/FlatHeaderGeometry.h"
#include "platform/SysColor.h"
#include "platform/commctrl/CHeaderCtrl.h"

namespace {

// A rectangle's frame in two colours: top and left, then bottom and right.
void Draw3dRect(wxDC & dc, wxRect const & rect, wxColour const & topLeft,
                wxColour const & bottomRight) {
  int const right = rect.x + rect.width - 1;
  int const bottom = rect.y + rect.height - 1;
  dc.SetPen(wxPen(topLeft));
  dc.DrawLine(rect.x, rect.y, right, rect.y);
  dc.DrawLine(rect.x, rect.y, rect.x, bottom);
  dc.SetPen(wxPen(bottomRight));
  dc.DrawLine(right, rect.y, right, bottom + 1);
  dc.DrawLine(rect.x, bottom, right, bottom);
}

}  // namespace

void DrawFlatHeaderBorder(wxDC & dc, CHeaderCtrl const & header) {
  wxRect rect(header.GetSize());
  wxColour const face = GetSysColour(COLOR_BTNFACE);
  wxColour const highlight = GetSysColour(COLOR_3DHILIGHT);
  wxColour const shadow = GetSysColour(COLOR_3DSHADOW);
  Draw3dRect(dc, rect, face, face);
  Draw3dRect(dc, rect.Deflate(1), face, face);
  Draw3dRect(dc, wxRect(header.GetSize()), highlight, shadow);

  std::vector<int> widths;
  for (int index : header.GetOrder()) widths.push_back(header.GetItemWidth(index));
  int const height = header.GetSize().y;
  int const offset = -header.GetScrollOffset();
  for (int edge : ColumnEdges(widths)) {
    int const x = edge + offset;
    dc.SetPen(wxPen(shadow));
    dc.DrawLine(x, 2, x, height - 2);
    dc.SetPen(wxPen(highlight));
    dc.DrawLine(x + 1, 2, x + 1, height - 2);
    dc.SetPen(wxPen(face));
    dc.DrawLine(x - 1, 2, x - 1, height - 2);
    dc.DrawLine(x - 2, 2, x - 2, height - 2);
  }
}
