// PrintDIB of a 4000 x 3000 24-bit picture, best fit on an A4 page of a PDF
// (the page device: StartDoc to the finished file) beside raw cairo doing
// the same: the same rows made a cairo image, painted scaled with the same
// filter on an A4 PDF page, the file finished. Part of talvo-bench-gui.
#include <benchmark/benchmark.h>

#include <cairo-pdf.h>
#include <cairo.h>
#include <cstdlib>
#include <cstring>
#include <string>

#include "Figures.h"
#include "gui/GuiBench.h"
#include "printing/PageDevice.h"
#include "printing/PrintDIB.h"

namespace {

TALVO_RATIO_LIMIT("PrintDIBPdf", 1.2);

constexpr int kWidth = 4000;
constexpr int kHeight = 3000;

std::string PdfPath(char const * name) {
  char const * folder = std::getenv("TMPDIR");
  return std::string(folder != nullptr ? folder : "/tmp") + "/" + name;
}

// A picture with detail everywhere (so that compressing it is real work).
struct Picture {
  Picture() {
    std::size_t const stride = DibStride(kWidth, 24);
    dib = GlobalAlloc(sizeof(BITMAPINFOHEADER) + stride * kHeight);
    auto * header = static_cast<BITMAPINFOHEADER *>(GlobalLock(dib));
    header->biSize = sizeof(BITMAPINFOHEADER);
    header->biWidth = kWidth;
    header->biHeight = kHeight;
    header->biPlanes = 1;
    header->biBitCount = 24;
    rows = reinterpret_cast<std::uint8_t *>(header + 1);
    for (int y = 0; y < kHeight; ++y) {
      std::uint8_t * row = rows + stride * std::size_t(y);
      for (int x = 0; x < kWidth; ++x) {
        row[x * 3] = std::uint8_t(x * 7 + y);
        row[x * 3 + 1] = std::uint8_t((x ^ y) * 3);
        row[x * 3 + 2] = std::uint8_t(y * 5 - x);
      }
    }
  }
  ~Picture() { GlobalFree(dib); }
  HDIB dib;
  std::uint8_t * rows;
};

Picture & Shared() {
  static Picture picture;
  return picture;
}

void PrintDIBPdf_candidate(benchmark::State & state) {
  if (!GuiStarted()) return state.SkipWithError("no display");
  Picture & picture = Shared();
  std::string const path = PdfPath("bench-printdib.pdf");
  for (auto _ : state) {
    auto device = PageDevice::ForPdf(path);
    DOCINFOW const info{sizeof(DOCINFOW), L"Picture", nullptr, nullptr, 0};
    device->StartDoc(info);
    device->StartPage();
    if (PrintDIB(picture.dib, 1, 0, 0, device.get(), 0) != 0)
      return state.SkipWithError("PrintDIB failed");
    device->EndDoc();
    if (!device->Close()) return state.SkipWithError("no PDF");
  }
}
BENCHMARK(PrintDIBPdf_candidate)->Name("PrintDIBPdf/candidate")->Unit(benchmark::kMillisecond);

void PrintDIBPdf_baseline(benchmark::State & state) {
  if (!GuiStarted()) return state.SkipWithError("no display");
  Picture & picture = Shared();
  std::string const path = PdfPath("bench-cairo.pdf");
  std::size_t const stride = DibStride(kWidth, 24);
  for (auto _ : state) {
    cairo_surface_t * pdf = cairo_pdf_surface_create(path.c_str(), 595.2756, 841.8898);
    cairo_t * cr = cairo_create(pdf);
    cairo_scale(cr, 72.0 / 600, 72.0 / 600);
    cairo_surface_t * image = cairo_image_surface_create(CAIRO_FORMAT_RGB24, kWidth, kHeight);
    cairo_surface_flush(image);
    unsigned char * data = cairo_image_surface_get_data(image);
    int const outStride = cairo_image_surface_get_stride(image);
    for (int y = 0; y < kHeight; ++y) {
      std::uint8_t const * row = picture.rows + stride * std::size_t(kHeight - 1 - y);
      auto * out = reinterpret_cast<std::uint32_t *>(data + std::ptrdiff_t(y) * outStride);
      for (int x = 0; x < kWidth; ++x) {
        out[x] = 0xFF000000U | (std::uint32_t(row[x * 3 + 2]) << 16) |
                 (std::uint32_t(row[x * 3 + 1]) << 8) | row[x * 3];
      }
    }
    cairo_surface_mark_dirty(image);
    // Best fit: the page's 4961 units across, 3720 down.
    cairo_save(cr);
    cairo_rectangle(cr, 0, 0, 4961, 3720);
    cairo_clip(cr);
    cairo_scale(cr, 4961.0 / kWidth, 3720.0 / kHeight);
    cairo_set_source_surface(cr, image, 0, 0);
    cairo_pattern_set_filter(cairo_get_source(cr), CAIRO_FILTER_NEAREST);
    cairo_paint(cr);
    cairo_restore(cr);
    cairo_show_page(cr);
    cairo_destroy(cr);
    cairo_surface_destroy(image);
    cairo_surface_finish(pdf);
    cairo_surface_destroy(pdf);
  }
}
BENCHMARK(PrintDIBPdf_baseline)->Name("PrintDIBPdf/baseline")->Unit(benchmark::kMillisecond);

}  // namespace
