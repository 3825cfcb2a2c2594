#include "controls/VxMemDC.h"

#include <algorithm>

#include <wx/brush.h>

VxMemDC::VxMemDC(wxDC & target, wxRect const & rect)
    : wxMemoryDC(&target),
      mTarget(target),
      mBitmap(std::max(rect.width, 1), std::max(rect.height, 1), 24) {
  SelectObject(mBitmap);
  wxBrush const & background = target.GetBackground();
  SetBackground(background.IsOk() ? background : *wxWHITE_BRUSH);
  SetFont(target.GetFont());
  Clear();
}

VxMemDC::~VxMemDC() {
  mTarget.Blit(0, 0, mBitmap.GetWidth(), mBitmap.GetHeight(), this, 0, 0, wxCOPY);
  SelectObject(wxNullBitmap);
}
