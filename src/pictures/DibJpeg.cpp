#include "pictures/DibJpeg.h"

#include <algorithm>
#include <csetjmp>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <jpeglib.h>

#include "pictures/ReplacingFile.h"

namespace {

constexpr int kQuality = 80;
constexpr JDIMENSION kRowsPerCall = 16;

// libjpeg's standard error_exit ends the process; this one jumps back to
// SaveDIBAsJPEG, which removes its temporary file and gives 0.
struct JumpingErrorManager {
  jpeg_error_mgr base;
  std::jmp_buf jump;
};

void JumpOnError(j_common_ptr info) {
  std::longjmp(reinterpret_cast<JumpingErrorManager *>(info->err)->jump, 1);
}

void Silent(j_common_ptr /*info*/) {}

// What the header says, checked against the block. Plain data only: libjpeg
// may jump over the frames that hold it.
struct JpegSource {
  BITMAPINFOHEADER header;
  unsigned char const * pixels;
  std::size_t stride;
  unsigned rows;
  bool topDown;
  unsigned char colorMap[256 * 3];
  unsigned char * rowBuffer;  // width * 3 * kRowsPerCall, for 8 and 16 bits
};

bool ReadSource(HDIB dib, JpegSource & source) {
  std::size_t const size = GlobalSize(dib);
  if (dib == nullptr || size < sizeof(BITMAPINFOHEADER)) return false;
  auto const * const block = static_cast<unsigned char const *>(GlobalLock(dib));
  BITMAPINFOHEADER & header = source.header;
  std::memcpy(&header, block, sizeof header);
  unsigned const bits = header.biBitCount;
  if (header.biSize != sizeof header || header.biCompression != BI_RGB ||
      (bits != 8 && bits != 16 && bits != 24 && bits != 32))
    return false;
  long long const height = header.biHeight < 0 ? -static_cast<long long>(header.biHeight)
                                               : static_cast<long long>(header.biHeight);
  if (header.biWidth <= 0 || height <= 0 || header.biWidth > JPEG_MAX_DIMENSION ||
      height > JPEG_MAX_DIMENSION)
    return false;
  std::size_t const tableSize = DibPaletteSize(block);
  source.stride = DibStride(header.biWidth, bits);
  source.rows = static_cast<unsigned>(height);
  source.topDown = header.biHeight < 0;
  std::size_t const pixelBytes = source.stride * source.rows;
  if (tableSize > size - sizeof header || pixelBytes > size - sizeof header - tableSize)
    return false;
  source.pixels = block + sizeof header + tableSize;
  std::memset(source.colorMap, 0, sizeof source.colorMap);
  if (bits == 8) {
    std::size_t const colors = std::min<std::size_t>(tableSize / 4, 256);
    for (std::size_t i = 0; i < colors; ++i) {
      unsigned char const * entry = block + sizeof header + i * 4;
      source.colorMap[i * 3] = entry[2];
      source.colorMap[i * 3 + 1] = entry[1];
      source.colorMap[i * 3 + 2] = entry[0];
    }
  }
  return true;
}

// The picture's row `row` counted from the top.
unsigned char const * StoredRow(JpegSource const & source, unsigned row) {
  unsigned const stored = source.topDown ? row : source.rows - 1 - row;
  return source.pixels + source.stride * stored;
}

// Rows are taken from the last stored towards the first, against the
// direction the processor's prefetcher follows from row to row; asking for
// the next batch while libjpeg works on this one wins back most of the
// time that costs (about a tenth of the encoding).
void PrefetchRows(JpegSource const & source, unsigned first, unsigned count) {
  std::size_t const bytes =
      static_cast<std::size_t>(source.header.biWidth) * source.header.biBitCount / 8;
  for (unsigned i = 0; i < count; ++i) {
    unsigned char const * row = StoredRow(source, first + i);
    for (std::size_t offset = 0; offset < bytes; offset += 64) __builtin_prefetch(row + offset);
  }
}

void ConvertRow(JpegSource const & source, unsigned char const * in, unsigned char * out) {
  auto const width = static_cast<unsigned>(source.header.biWidth);
  if (source.header.biBitCount == 8) {
    for (unsigned x = 0; x < width; ++x, out += 3) std::memcpy(out, source.colorMap + in[x] * 3, 3);
    return;
  }
  for (unsigned x = 0; x < width; ++x, in += 2, out += 3) {
    unsigned const pixel = in[0] | (in[1] << 8);
    out[0] = static_cast<unsigned char>(((pixel >> 10) & 31) * 255 / 31);
    out[1] = static_cast<unsigned char>(((pixel >> 5) & 31) * 255 / 31);
    out[2] = static_cast<unsigned char>((pixel & 31) * 255 / 31);
  }
}

void Prepare(jpeg_compress_struct & info, JpegSource const & source) {
  info.in_color_space = JCS_RGB;
  jpeg_set_defaults(&info);
  BITMAPINFOHEADER const & header = source.header;
  if (header.biXPelsPerMeter >= 1 && header.biYPelsPerMeter >= 1) {
    info.density_unit = 2;
    info.X_density = static_cast<UINT16>(std::min(header.biXPelsPerMeter / 100, 65535));
    info.Y_density = static_cast<UINT16>(std::min(header.biYPelsPerMeter / 100, 65535));
  }
  info.image_width = static_cast<JDIMENSION>(header.biWidth);
  info.image_height = source.rows;
  info.input_components = 3;
  // 24 and 32-bit rows go in as they are stored: libjpeg-turbo takes blue
  // first itself, which gives the same file as swapping to red first.
  if (header.biBitCount == 24) {
    info.in_color_space = JCS_EXT_BGR;
  } else if (header.biBitCount == 32) {
    info.in_color_space = JCS_EXT_BGRX;
    info.input_components = 4;
  }
  jpeg_default_colorspace(&info);
  info.optimize_coding = FALSE;
  jpeg_set_quality(&info, kQuality, FALSE);
}

// Everything libjpeg may jump out of; the caller cleans up.
bool Compress(jpeg_compress_struct & info, JumpingErrorManager & error, JpegSource & source,
              std::FILE * file) {
  if (setjmp(error.jump) != 0) return false;
  jpeg_create_compress(&info);
  Prepare(info, source);
  jpeg_stdio_dest(&info, file);
  jpeg_start_compress(&info, TRUE);
  bool const direct = source.header.biBitCount >= 24;
  JSAMPROW rows[kRowsPerCall];
  while (info.next_scanline < info.image_height) {
    JDIMENSION const first = info.next_scanline;
    JDIMENSION const count = std::min(kRowsPerCall, info.image_height - first);
    for (JDIMENSION i = 0; i < count; ++i) {
      unsigned char const * stored = StoredRow(source, first + i);
      if (direct) {
        rows[i] = const_cast<JSAMPROW>(stored);
      } else {
        rows[i] = source.rowBuffer + static_cast<std::size_t>(i) * info.image_width * 3;
        ConvertRow(source, stored, rows[i]);
      }
    }
    PrefetchRows(source, first + count, std::min(kRowsPerCall, info.image_height - first - count));
    jpeg_write_scanlines(&info, rows, count);
  }
  jpeg_finish_compress(&info);
  return true;
}

}  // namespace

int SaveDIBAsJPEG(HDIB dib, char const * path) {
  auto * const source = static_cast<JpegSource *>(std::calloc(1, sizeof(JpegSource)));
  if (source == nullptr || path == nullptr || path[0] == 0 || !ReadSource(dib, *source)) {
    std::free(source);
    return 0;
  }
  source->rowBuffer = static_cast<unsigned char *>(
      std::malloc(static_cast<std::size_t>(source->header.biWidth) * 3 * kRowsPerCall));
  ReplacingFile target(path);
  std::FILE * const file = source->rowBuffer != nullptr ? target.Open() : nullptr;
  bool done = false;
  if (file != nullptr) {
    jpeg_compress_struct info{};
    JumpingErrorManager error{};
    info.err = jpeg_std_error(&error.base);
    error.base.error_exit = JumpOnError;
    error.base.output_message = Silent;
    done = Compress(info, error, *source, file);
    jpeg_destroy_compress(&info);
    done = done && target.Commit();
  }
  std::free(source->rowBuffer);
  std::free(source);
  return done ? 1 : 0;
}
