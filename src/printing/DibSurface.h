#pragma once
// The part of a device-independent bitmap that a StretchDIBits call names,
// as a cairo ARGB32 surface. The source rectangle is given as Windows gives
// it: x from the left; y from the last row of a bottom-up DIB (positive
// height), from the first of a top-down one. What of it lies outside the
// bitmap is left out: the surface holds the intersection, placed at
// Offset() within the rectangle.

// cairo's type, declared as cairo declares it.
typedef struct _cairo_surface cairo_surface_t;  // NOLINT(modernize-use-using)

class DibSurface {
public:
  // `info`: a BITMAPINFOHEADER (or BITMAPCOREHEADER) with its colour table;
  // `bits`: the rows. 1, 4, 8, 16, 24 and 32 bits; RLE data is refused.
  DibSurface(void const * info, void const * bits, int x, int y, int width, int height);
  ~DibSurface();
  DibSurface(DibSurface const &) = delete;
  DibSurface & operator=(DibSurface const &) = delete;

  bool IsOk() const { return mSurface != nullptr; }
  cairo_surface_t * Surface() const { return mSurface; }
  int OffsetX() const { return mOffsetX; }
  int OffsetY() const { return mOffsetY; }

private:
  cairo_surface_t * mSurface = nullptr;
  int mOffsetX = 0;
  int mOffsetY = 0;
};
