#include "properties/PropertyInPlaceLayout.h"

#include <algorithm>

#include <wx/dcclient.h>
#include <wx/window.h>

namespace PropertyInPlaceLayout {

int TextHeight(wxWindow const & window) {
  // Measured once a font: an editor is made on every selection change.
  static wxFont measured;
  static int height = 0;
  wxFont const font = window.GetFont();
  if (!measured.IsOk() || font != measured) {
    wxClientDC dc(const_cast<wxWindow *>(&window));
    dc.SetFont(font);
    height = dc.GetTextExtent("DummyText").y;
    measured = font;
  }
  return height;
}

RECT EditRect(RECT const & cell, int textHeight, int reservedRight) {
  LONG const top = cell.top + (cell.bottom - cell.top - textHeight) / 2;
  return RECT{cell.left + kInset, top, cell.right - reservedRight - kInset, top + textHeight};
}

int DropListHeight(int count, int rowHeight) {
  int const rows = std::min(8, count);
  return rows < 1 ? 100 : rowHeight * rows + 2;
}

int StepIndex(int current, int count, bool up) {
  if (up) return current > 0 ? current - 1 : current;
  return current + 1 < count ? current + 1 : current;
}

int CycleIndex(int current, int count) {
  if (count <= 1) return current;
  return current + 1 < count ? current + 1 : 0;
}

}  // namespace PropertyInPlaceLayout
