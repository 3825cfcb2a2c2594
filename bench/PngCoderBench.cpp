// The PNG coder on a 2048 x 2048 picture: DIB to PNG beside raw libpng
// writing the same rows with the same settings, and PNG to a 32-bit DIB
// beside wxImage loading the same file.
#include <benchmark/benchmark.h>
#include <png.h>
#include <unistd.h>

#include <wx/image.h>
#include <wx/imagpng.h>

#include <algorithm>
#include <cmath>
#include <csetjmp>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "Figures.h"
#include "PhotoDib.h"
#include "pictures/DibBlock.h"
#include "pictures/PngCoder.h"

namespace {

TALVO_RATIO_LIMIT("DibToPng", 1.05);
TALVO_RATIO_LIMIT("PngToDib32", 0.8);

constexpr int kSide = bench::kPhotoSide;
using bench::PhotoDib;

std::string BenchFile(std::string const & name) { return bench::PictureBenchFile("png-" + name); }

int WritePng(std::vector<unsigned char> const & dib, std::string const & path, bool alpha) {
  VxPngInfo * const info = VxPngCreate(VX_PNG_DIB_TO_PNG);
  info->write.dib = dib.data();
  info->write.dibSize = dib.size();
  info->write.alpha = alpha;
  std::wstring const name(path.begin(), path.end());
  VxPngSetOutputFile(info, name.c_str());
  int const code = VxDibToPng(info);
  VxPngFree(info);
  return code;
}

// Raw libpng with the coder's settings: sRGB and gAMA, blue first, rows
// bottom-up, default compression. Plain C state only: libpng may longjmp.
struct RawWrite {
  png_structp png;
  png_infop info;
  std::FILE * file;
  png_bytep * rows;
};

bool RawWriteSteps(RawWrite * state, unsigned char const * bits, std::size_t stride) {
  if (setjmp(png_jmpbuf(state->png)) != 0) return false;
  png_init_io(state->png, state->file);
  png_set_IHDR(state->png, state->info, kSide, kSide, 8, PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE,
               PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
  png_set_sRGB(state->png, state->info, PNG_sRGB_INTENT_RELATIVE);
  png_set_gAMA(state->png, state->info, 0.45455);
  png_set_bgr(state->png);
  png_write_info(state->png, state->info);
  for (int i = 0; i < kSide; ++i)
    state->rows[i] = const_cast<png_bytep>(bits + stride * static_cast<std::size_t>(kSide - 1 - i));
  png_write_image(state->png, state->rows);
  png_write_end(state->png, state->info);
  return true;
}

bool RawLibpngWrite(std::vector<unsigned char> const & dib, std::string const & path) {
  RawWrite state{};
  state.png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
  state.info = png_create_info_struct(state.png);
  state.file = std::fopen(path.c_str(), "wb");
  state.rows = static_cast<png_bytep *>(std::malloc(kSide * sizeof(png_bytep)));
  bool const ok = RawWriteSteps(&state, dib.data() + 40, DibStride(kSide, 24));
  png_destroy_write_struct(&state.png, &state.info);
  std::fclose(state.file);
  std::free(state.rows);
  return ok;
}

void DibToPngCandidate(benchmark::State & state) {
  std::vector<unsigned char> const dib = PhotoDib(24);
  std::string const path = BenchFile("candidate.png");
  for (auto _ : state)
    if (WritePng(dib, path, false) != VX_PNG_OK) state.SkipWithError("the coder failed");
  ::unlink(path.c_str());
}

void DibToPngBaseline(benchmark::State & state) {
  std::vector<unsigned char> const dib = PhotoDib(24);
  std::string const path = BenchFile("baseline.png");
  for (auto _ : state)
    if (!RawLibpngWrite(dib, path)) state.SkipWithError("libpng failed");
  ::unlink(path.c_str());
}

// An RGBA file, so that the coder gives a 32-bit DIB with masks.
std::string const & RgbaFile() {
  static std::string const path = [] {
    std::string file = BenchFile("rgba.png");
    WritePng(PhotoDib(32), file, true);
    return file;
  }();
  return path;
}

void PngToDib32Candidate(benchmark::State & state) {
  std::wstring const name(RgbaFile().begin(), RgbaFile().end());
  VxPngInfo * const info = VxPngCreate(VX_PNG_PNG_TO_DIB);
  VxPngSetInputFile(info, name.c_str());
  info->read.useAlpha = true;
  for (auto _ : state) {
    if (VxPngToDib(info) != VX_PNG_OK) state.SkipWithError("the coder failed");
    benchmark::DoNotOptimize(info->read.dib);
    VxPngFreeDib(info);
  }
  VxPngFree(info);
}

void PngToDib32Baseline(benchmark::State & state) {
  if (wxImage::FindHandler(wxBITMAP_TYPE_PNG) == nullptr) wxImage::AddHandler(new wxPNGHandler);
  wxString const name = wxString::FromUTF8(RgbaFile());
  for (auto _ : state) {
    wxImage const image(name, wxBITMAP_TYPE_PNG);
    if (!image.IsOk() || !image.HasAlpha()) state.SkipWithError("wxImage failed");
    benchmark::DoNotOptimize(image.GetData());
  }
}

}  // namespace

BENCHMARK(DibToPngCandidate)->Name("DibToPng/candidate")->Unit(benchmark::kMillisecond);
BENCHMARK(DibToPngBaseline)->Name("DibToPng/baseline")->Unit(benchmark::kMillisecond);
BENCHMARK(PngToDib32Candidate)->Name("PngToDib32/candidate")->Unit(benchmark::kMillisecond);
BENCHMARK(PngToDib32Baseline)->Name("PngToDib32/baseline")->Unit(benchmark::kMillisecond);
