// The picture output: each page an ARGB32 surface on white, kept in memory
// for previews.

#include <cmath>

#include <cairo.h>

#include "printing/PageDevice.h"
#include "printing/PageOutput.h"

namespace {

class ImagePageOutput : public PageOutput {
public:
  explicit ImagePageOutput(double pixelsPerInch) : mPixelsPerInch(pixelsPerInch) {}
  ~ImagePageOutput() override {
    DropOpenPage();
    for (cairo_surface_t * page : mPages) {
      cairo_surface_destroy(page);
    }
  }

  bool StartDocument(std::string const & /*name*/, ExceptionMessage & /*error*/) override {
    return true;
  }

  cairo_t * StartPage(ExceptionMessage & error) override {
    DropOpenPage();
    int const width = int(std::lround(mWidthPoints / 72.0 * mPixelsPerInch));
    int const height = int(std::lround(mHeightPoints / 72.0 * mPixelsPerInch));
    mSurface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height);
    if (cairo_surface_status(mSurface) != CAIRO_STATUS_SUCCESS) {
      error = ExceptionMessage::translate("The page cannot be drawn: {1}") %
              cairo_status_to_string(cairo_surface_status(mSurface));
      DropOpenPage();
      return nullptr;
    }
    mContext = DeviceContext(mSurface, mPixelsPerInch / PageDevice::UnitsPerInch);
    cairo_save(mContext);
    cairo_set_source_rgb(mContext, 1.0, 1.0, 1.0);
    cairo_paint(mContext);
    cairo_restore(mContext);
    return mContext;
  }

  bool EndPage(ExceptionMessage & /*error*/) override {
    cairo_destroy(mContext);
    mContext = nullptr;
    cairo_surface_flush(mSurface);
    mPages.push_back(mSurface);
    mSurface = nullptr;
    return true;
  }

  bool EndDocument(ExceptionMessage & /*error*/) override { return true; }
  void AbortDocument() override { DropOpenPage(); }
  bool Finish(ExceptionMessage & /*error*/) override { return true; }

  std::vector<cairo_surface_t *> Pages() const override { return mPages; }

private:
  void DropOpenPage() {
    if (mContext != nullptr) {
      cairo_destroy(mContext);
      mContext = nullptr;
    }
    if (mSurface != nullptr) {
      cairo_surface_destroy(mSurface);
      mSurface = nullptr;
    }
  }

  double mPixelsPerInch;
  cairo_surface_t * mSurface = nullptr;
  cairo_t * mContext = nullptr;
  std::vector<cairo_surface_t *> mPages;
};

}  // namespace

std::unique_ptr<PageOutput> PageOutput::Images(double pixelsPerInch) {
  return std::make_unique<ImagePageOutput>(pixelsPerInch);
}
