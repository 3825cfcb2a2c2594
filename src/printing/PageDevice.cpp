#include "printing/PageDevice.h"

#include <cairo.h>

#include <algorithm>
#include <cmath>

#include <wx/dcgraph.h>
#include <wx/graphics.h>
#include <boost/locale/encoding_utf.hpp>

#include "printing/DibSurface.h"
#include "printing/PageOutput.h"

namespace {

constexpr double MillimetresPerInch = 25.4;

int ToUnits(double millimetres) {
  return int(std::lround(millimetres / MillimetresPerInch * PageDevice::UnitsPerInch));
}

wxGraphicsContext * ContextOver(cairo_t * context) {
  return wxGraphicsRenderer::GetCairoRenderer()->CreateContextFromNativeContext(context);
}

}  // namespace

std::unique_ptr<PageDevice> PageDevice::ForPdf(std::string const & path, PaperFormat paper) {
  return std::make_unique<PageDevice>(PageOutput::Pdf(path), paper);
}

std::unique_ptr<PageDevice> PageDevice::ForImages(PaperFormat paper, double pixelsPerInch) {
  return std::make_unique<PageDevice>(PageOutput::Images(pixelsPerInch), paper);
}

std::unique_ptr<PageDevice> PageDevice::ForPrinter(std::string const & printer, PaperFormat paper) {
  return std::make_unique<PageDevice>(PageOutput::Printer(printer), paper);
}

PageDevice::PageDevice(std::unique_ptr<PageOutput> output, PaperFormat paper)
    : mOutput(std::move(output)), mPaper(paper) {
  double width = std::min(paper.widthMm, paper.heightMm);
  double height = std::max(paper.widthMm, paper.heightMm);
  if (paper.landscape) {
    std::swap(width, height);
  }
  mWidth = ToUnits(width);
  mHeight = ToUnits(height);
  mOutput->SetPaper(width / MillimetresPerInch * 72.0, height / MillimetresPerInch * 72.0);
  // Text is measured before the first page too (lines broken, footers
  // centred): on a surface of its own with the pages' unhinted metrics.
  mMeasureSurface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, 1, 1);
  cairo_t * measure = cairo_create(mMeasureSurface);
  cairo_font_options_t * options = cairo_font_options_create();
  cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
  cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
  cairo_set_font_options(measure, options);
  cairo_font_options_destroy(options);
  mDc = std::make_unique<wxGCDC>(ContextOver(measure));
  cairo_destroy(measure);
}

PageDevice::~PageDevice() {
  Close();
  mDc.reset();
  cairo_surface_destroy(mMeasureSurface);
}

int PageDevice::GetDeviceCaps(int index) const {
  switch (index) {
    case TECHNOLOGY: return DT_RASPRINTER;
    case HORZSIZE: return int(std::lround(mWidth * MillimetresPerInch / UnitsPerInch));
    case VERTSIZE: return int(std::lround(mHeight * MillimetresPerInch / UnitsPerInch));
    case HORZRES:
    case PHYSICALWIDTH: return mWidth;
    case VERTRES:
    case PHYSICALHEIGHT: return mHeight;
    case BITSPIXEL: return 24;
    case PLANES: return 1;
    case NUMCOLORS: return -1;
    case RASTERCAPS: return RC_BITBLT | RC_STRETCHDIB;
    case LOGPIXELSX:
    case LOGPIXELSY: return UnitsPerInch;
    default: return 0;  // PHYSICALOFFSETX/Y among them: the whole paper is printable
  }
}

void PageDevice::Fail(ExceptionMessage message) {
  if (!mFailed) {
    mError = std::move(message);
  }
  mFailed = true;
}

int PageDevice::StartDoc(DOCINFOW const & info) {
  if (mClosed || mDocOpen) {
    return SP_ERROR;
  }
  std::string const name = info.lpszDocName != nullptr
                               ? boost::locale::conv::utf_to_utf<char>(info.lpszDocName)
                               : std::string();
  ExceptionMessage error;
  if (!mOutput->StartDocument(name, error)) {
    Fail(error);
    return SP_ERROR;
  }
  mDocOpen = true;
  return 1;
}

int PageDevice::StartPage() {
  if (!mDocOpen || mPage != nullptr) {
    return SP_ERROR;
  }
  ExceptionMessage error;
  mPage = mOutput->StartPage(error);
  if (mPage == nullptr) {
    Fail(error);
    return SP_ERROR;
  }
  mDc->SetGraphicsContext(ContextOver(mPage));
  return 1;
}

int PageDevice::EndPage() {
  if (mPage == nullptr) {
    // NEWFRAME ended it already: a page bracket closed twice adds no blank
    // page.
    return mDocOpen ? 1 : SP_ERROR;
  }
  cairo_t * measure = cairo_create(mMeasureSurface);
  mDc->SetGraphicsContext(ContextOver(measure));
  cairo_destroy(measure);
  mPage = nullptr;
  ExceptionMessage error;
  if (!mOutput->EndPage(error)) {
    Fail(error);
    return SP_ERROR;
  }
  ++mPagesPrinted;
  return 1;
}

int PageDevice::EndDoc() {
  if (!mDocOpen) {
    return SP_ERROR;
  }
  if (mPage != nullptr && EndPage() <= 0) {
    AbortDoc();
    return SP_ERROR;
  }
  mDocOpen = false;
  ExceptionMessage error;
  if (!mOutput->EndDocument(error)) {
    Fail(error);
    return SP_ERROR;
  }
  return 1;
}

int PageDevice::AbortDoc() {
  if (mPage != nullptr) {
    cairo_t * measure = cairo_create(mMeasureSurface);
    mDc->SetGraphicsContext(ContextOver(measure));
    cairo_destroy(measure);
    mPage = nullptr;
  }
  mDocOpen = false;
  mOutput->AbortDocument();
  return 1;
}

int PageDevice::Escape(int escape, int inSize, void const * in, void * out) {
  switch (escape) {
    case QUERYESCSUPPORT: {
      if (in == nullptr || inSize < int(sizeof(int))) {
        return 0;
      }
      int const asked = *static_cast<int const *>(in);
      return int(asked == QUERYESCSUPPORT || asked == NEWFRAME ||
                 (asked == GETSETCOPYCOUNT && mOutput->MaxCopies() > 0));
    }
    case NEWFRAME:
      if (mPage == nullptr && StartPage() <= 0) {
        return SP_ERROR;
      }
      return EndPage();
    case GETSETCOPYCOUNT: {
      if (mOutput->MaxCopies() <= 0) {
        return 0;
      }
      if (in != nullptr && inSize >= int(sizeof(int))) {
        mCopies = std::clamp(*static_cast<int const *>(in), 1, mOutput->MaxCopies());
        mOutput->SetCopies(mCopies);
      }
      if (out != nullptr) {
        *static_cast<int *>(out) = mCopies;
      }
      return 1;
    }
    default: return 0;  // NEXTBAND and BANDINFO among them: this device does not band
  }
}

int PageDevice::SetStretchBltMode(int mode) {
  int const former = mStretchMode;
  mStretchMode = mode;
  return former;
}

int PageDevice::StretchDIBits(int x, int y, int width, int height, int xSource, int ySource,
                              int sourceWidth, int sourceHeight, void const * bits,
                              void const * bitmapInfo, UINT usage, DWORD rop) {
  if (mPage == nullptr || usage != DIB_RGB_COLORS || rop != SRCCOPY) {
    return 0;
  }
  DibSurface const source(bitmapInfo, bits, xSource, ySource, sourceWidth, sourceHeight);
  if (!source.IsOk()) {
    return 0;
  }
  // Whatever the wxGCDC holds (clip, transform) belongs to its context; the
  // picture goes straight onto the page in device units.
  cairo_save(mPage);
  cairo_translate(mPage, x, y);
  cairo_scale(mPage, double(width) / sourceWidth, double(height) / sourceHeight);
  cairo_rectangle(mPage, source.OffsetX(), source.OffsetY(),
                  cairo_image_surface_get_width(source.Surface()),
                  cairo_image_surface_get_height(source.Surface()));
  cairo_clip(mPage);
  cairo_set_source_surface(mPage, source.Surface(), source.OffsetX(), source.OffsetY());
  cairo_pattern_set_filter(cairo_get_source(mPage),
                           mStretchMode == HALFTONE ? CAIRO_FILTER_GOOD : CAIRO_FILTER_NEAREST);
  cairo_pattern_set_extend(cairo_get_source(mPage), CAIRO_EXTEND_NONE);
  cairo_paint(mPage);
  cairo_restore(mPage);
  return std::abs(sourceHeight);
}

wxDC & PageDevice::GetDC() { return *mDc; }

bool PageDevice::Close() {
  if (mClosed) {
    return !mFailed;
  }
  if (mDocOpen) {
    EndDoc();
  }
  mClosed = true;
  ExceptionMessage error;
  if (!mOutput->Finish(error)) {
    Fail(error);
  }
  return !mFailed;
}

std::vector<wxImage> PageDevice::PageImages() const {
  std::vector<wxImage> images;
  for (cairo_surface_t * page : mOutput->Pages()) {
    int const width = cairo_image_surface_get_width(page);
    int const height = cairo_image_surface_get_height(page);
    int const stride = cairo_image_surface_get_stride(page);
    unsigned char const * data = cairo_image_surface_get_data(page);
    wxImage image(width, height, false);
    unsigned char * rgb = image.GetData();
    for (int row = 0; row < height; ++row) {
      auto const * pixel =
          reinterpret_cast<std::uint32_t const *>(data + std::ptrdiff_t(row) * stride);
      for (int column = 0; column < width; ++column, rgb += 3) {
        std::uint32_t const argb = pixel[column];  // opaque: the page was painted white first
        rgb[0] = static_cast<unsigned char>(argb >> 16);
        rgb[1] = static_cast<unsigned char>(argb >> 8);
        rgb[2] = static_cast<unsigned char>(argb);
      }
    }
    images.push_back(std::move(image));
  }
  return images;
}

cairo_surface_t * PageDevice::PageSurface(std::size_t index) const {
  std::vector<cairo_surface_t *> const pages = mOutput->Pages();
  return index < pages.size() ? pages[index] : nullptr;
}
