// SaveDIBAsJPEG on a 2048 x 2048 24-bit picture beside raw libjpeg-turbo
// writing the same picture at quality 80 to a file, from red-first rows
// made before the clock starts.
#include <benchmark/benchmark.h>
#include <jpeglib.h>
#include <unistd.h>

#include <cstdio>
#include <string>
#include <vector>

#include "Figures.h"
#include "PhotoDib.h"
#include "pictures/DibJpeg.h"

namespace {

TALVO_RATIO_LIMIT("SaveDibAsJpeg", 1.1);

using bench::kPhotoSide;

HDIB PhotoBlock() {
  std::vector<unsigned char> const bytes = bench::PhotoDib(24);
  HDIB const dib = GlobalAlloc(bytes.size());
  std::memcpy(GlobalLock(dib), bytes.data(), bytes.size());
  return dib;
}

// The picture's rows top first, red first, as libjpeg takes them.
std::vector<unsigned char> RgbRows() {
  std::vector<unsigned char> const dib = bench::PhotoDib(24);
  std::size_t const stride = DibStride(kPhotoSide, 24);
  std::vector<unsigned char> rgb(static_cast<std::size_t>(kPhotoSide) * kPhotoSide * 3);
  for (int y = 0; y < kPhotoSide; ++y) {
    unsigned char const * in =
        dib.data() + 40 + stride * static_cast<std::size_t>(kPhotoSide - 1 - y);
    unsigned char * out = rgb.data() + static_cast<std::size_t>(y) * kPhotoSide * 3;
    for (int x = 0; x < kPhotoSide; ++x, in += 3, out += 3) {
      out[0] = in[2];
      out[1] = in[1];
      out[2] = in[0];
    }
  }
  return rgb;
}

bool RawLibjpegWrite(std::vector<unsigned char> const & rgb, std::string const & path) {
  std::FILE * const file = std::fopen(path.c_str(), "wb");
  if (file == nullptr) return false;
  jpeg_compress_struct info{};
  jpeg_error_mgr error{};
  info.err = jpeg_std_error(&error);
  jpeg_create_compress(&info);
  jpeg_stdio_dest(&info, file);
  info.image_width = kPhotoSide;
  info.image_height = kPhotoSide;
  info.input_components = 3;
  info.in_color_space = JCS_RGB;
  jpeg_set_defaults(&info);
  jpeg_set_quality(&info, 80, FALSE);
  jpeg_start_compress(&info, TRUE);
  std::vector<JSAMPROW> rows(kPhotoSide);
  for (int y = 0; y < kPhotoSide; ++y)
    rows[y] = const_cast<JSAMPROW>(rgb.data() + static_cast<std::size_t>(y) * kPhotoSide * 3);
  while (info.next_scanline < info.image_height)
    jpeg_write_scanlines(&info, rows.data() + info.next_scanline,
                         info.image_height - info.next_scanline);
  jpeg_finish_compress(&info);
  jpeg_destroy_compress(&info);
  return std::fclose(file) == 0;
}

void SaveDibAsJpegCandidate(benchmark::State & state) {
  HDIB const dib = PhotoBlock();
  std::string const path = bench::PictureBenchFile("candidate.jpg");
  for (auto _ : state)
    if (SaveDIBAsJPEG(dib, path.c_str()) != 1) state.SkipWithError("SaveDIBAsJPEG failed");
  ::unlink(path.c_str());
  GlobalFree(dib);
}

void SaveDibAsJpegBaseline(benchmark::State & state) {
  std::vector<unsigned char> const rgb = RgbRows();
  std::string const path = bench::PictureBenchFile("baseline.jpg");
  for (auto _ : state)
    if (!RawLibjpegWrite(rgb, path)) state.SkipWithError("libjpeg failed");
  ::unlink(path.c_str());
}

}  // namespace

BENCHMARK(SaveDibAsJpegCandidate)->Name("SaveDibAsJpeg/candidate")->Unit(benchmark::kMillisecond);
BENCHMARK(SaveDibAsJpegBaseline)->Name("SaveDibAsJpeg/baseline")->Unit(benchmark::kMillisecond);
