#pragma once
// An output whose pages are the pages of one cairo surface that lives as
// long as a document or the run (a PDF file, a print job): every page opens
// on the same context and ends by showing it. The medium says in its own
// words what a failed surface means.

#include "printing/PageOutput.h"

class SurfacePageOutput : public PageOutput {
public:
  cairo_t * StartPage(ExceptionMessage & error) override;
  bool EndPage(ExceptionMessage & error) override;

protected:
  // The medium's message for a surface that failed with `reason`.
  virtual ExceptionMessage SurfaceFailed(char const * reason) const = 0;

  // True while the surface is sound; else false with `error` set.
  bool Check(ExceptionMessage & error) const;
  // Destroys the context, if there is one.
  void DropContext();

  cairo_surface_t * mSurface = nullptr;
  cairo_t * mContext = nullptr;
};
