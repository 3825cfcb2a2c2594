#pragma once
// Flicker-free drawing: a memory context over a bitmap of the rectangle's
// size, filled with the target's background colour. The destructor copies
// the bitmap to the target at (0, 0) -- at the origin whatever the
// rectangle's origin, as the controls that draw through it expect.

#include <wx/bitmap.h>
#include <wx/dcmemory.h>

class VxMemDC : public wxMemoryDC {
public:
  VxMemDC(wxDC & target, wxRect const & rect);
  ~VxMemDC() override;

  VxMemDC(VxMemDC const &) = delete;
  VxMemDC & operator=(VxMemDC const &) = delete;

private:
  wxDC & mTarget;
  wxBitmap mBitmap;
};
