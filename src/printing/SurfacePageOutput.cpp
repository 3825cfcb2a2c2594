#include "printing/SurfacePageOutput.h"

#include <cairo.h>

cairo_t * SurfacePageOutput::StartPage(ExceptionMessage & /*error*/) {
  // What a page changes of the context ends with the page.
  cairo_save(mContext);
  return mContext;
}

bool SurfacePageOutput::EndPage(ExceptionMessage & error) {
  cairo_restore(mContext);
  cairo_show_page(mContext);
  return Check(error);
}

bool SurfacePageOutput::Check(ExceptionMessage & error) const {
  cairo_status_t const status = cairo_surface_status(mSurface);
  if (status == CAIRO_STATUS_SUCCESS) return true;
  error = SurfaceFailed(cairo_status_to_string(status));
  return false;
}

void SurfacePageOutput::DropContext() {
  if (mContext == nullptr) return;
  cairo_destroy(mContext);
  mContext = nullptr;
}
