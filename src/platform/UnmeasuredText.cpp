#include "platform/UnmeasuredText.h"

#include <wx/graphics.h>

void DrawTextUnmeasured(wxDC & dc, wxString const & text, int x, int y) {
  wxGraphicsContext * const gc = dc.GetGraphicsContext();
  // A solid text background and the raster operations are drawn by the
  // device context itself.
  if (gc == nullptr || dc.GetBackgroundMode() != wxBRUSHSTYLE_TRANSPARENT ||
      dc.GetLogicalFunction() != wxCOPY) {
    dc.DrawText(text, x, y);
    return;
  }
  if (text.empty()) return;
  gc->DrawText(text, x, y);
}
