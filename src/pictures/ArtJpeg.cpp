#include "pictures/ArtJpeg.h"

#include <csetjmp>
#include <cstdio>
#include <cstdlib>

#include <jpeglib.h>

namespace vx3 {

namespace {

// libjpeg reports fatal errors through error_exit, which must not return:
// it jumps back to the coder, which then throws.
struct JpegErrorManager {
  jpeg_error_mgr base;
  std::jmp_buf jump;
  char message[JMSG_LENGTH_MAX];
  int maxScans;
};

void JumpOnError(j_common_ptr info) {
  auto * const manager = reinterpret_cast<JpegErrorManager *>(info->err);
  (*info->err->format_message)(info, manager->message);
  std::longjmp(manager->jump, 1);
}

void Silent(j_common_ptr /*info*/) {}

void LimitScans(j_common_ptr info) {
  auto * const manager = reinterpret_cast<JpegErrorManager *>(info->err);
  auto const * const decoder = reinterpret_cast<j_decompress_ptr>(info);
  if (decoder->input_scan_number > manager->maxScans) {
    std::snprintf(manager->message, sizeof manager->message, "too many scans");
    std::longjmp(manager->jump, 1);
  }
}

struct Decompressor {
  jpeg_decompress_struct info{};
  JpegErrorManager error{};
  jpeg_progress_mgr progress{};

  explicit Decompressor(int maxScans) {
    info.err = jpeg_std_error(&error.base);
    error.base.error_exit = JumpOnError;
    error.base.output_message = Silent;
    error.maxScans = maxScans;
    jpeg_create_decompress(&info);
    progress.progress_monitor = LimitScans;
    info.progress = &progress;
    // A bound for the buffers of a progressive file, which libjpeg sizes by
    // the header, not by the scaled output.
    info.mem->max_memory_to_use = 512l << 20;
  }
  ~Decompressor() { jpeg_destroy_decompress(&info); }
};

struct Compressor {
  jpeg_compress_struct info{};
  JpegErrorManager error{};
  unsigned char * buffer = nullptr;
  unsigned long size = 0;

  Compressor() {
    info.err = jpeg_std_error(&error.base);
    error.base.error_exit = JumpOnError;
    error.base.output_message = Silent;
    jpeg_create_compress(&info);
  }
  ~Compressor() {
    jpeg_destroy_compress(&info);
    std::free(buffer);
  }
};

int ScaleDenominator(int width, int height, int minWidth, int minHeight) {
  if (minWidth <= 0 || minHeight <= 0) return 1;
  for (int denominator = 8; denominator > 1; denominator /= 2) {
    // libjpeg rounds the scaled size up.
    int const scaledWidth = (width + denominator - 1) / denominator;
    int const scaledHeight = (height + denominator - 1) / denominator;
    if (scaledWidth >= minWidth && scaledHeight >= minHeight) return denominator;
  }
  return 1;
}

}  // namespace

void ReadJpegSize(unsigned char const * data, size_t size, int & width, int & height) {
  Decompressor decoder(1);
  if (setjmp(decoder.error.jump) != 0) throw ArtJpegError(decoder.error.message);
  jpeg_mem_src(&decoder.info, data, static_cast<unsigned long>(size));
  jpeg_read_header(&decoder.info, TRUE);
  width = static_cast<int>(decoder.info.image_width);
  height = static_cast<int>(decoder.info.image_height);
}

wxImage DecodeArtJpeg(unsigned char const * data, size_t size, JpegDecodeLimits const & limits,
                      int minWidth, int minHeight) {
  Decompressor decoder(limits.maxScans);
  wxImage image;
  if (setjmp(decoder.error.jump) != 0) throw ArtJpegError(decoder.error.message);
  jpeg_mem_src(&decoder.info, data, static_cast<unsigned long>(size));
  jpeg_read_header(&decoder.info, TRUE);
  if (decoder.info.jpeg_color_space == JCS_CMYK || decoder.info.jpeg_color_space == JCS_YCCK)
    throw ArtJpegError("CMYK JPEG");
  decoder.info.out_color_space = JCS_RGB;
  decoder.info.scale_num = 1;
  decoder.info.scale_denom = static_cast<unsigned>(
      ScaleDenominator(static_cast<int>(decoder.info.image_width),
                       static_cast<int>(decoder.info.image_height), minWidth, minHeight));
  jpeg_calc_output_dimensions(&decoder.info);
  unsigned long long const width = decoder.info.output_width;
  unsigned long long const height = decoder.info.output_height;
  if (width == 0 || height == 0 || width > static_cast<unsigned>(limits.maxWidth) ||
      height > static_cast<unsigned>(limits.maxHeight) || width * height > limits.maxPixels)
    throw ArtJpegError("JPEG of " + std::to_string(decoder.info.image_width) + " x " +
                       std::to_string(decoder.info.image_height) + " pixels is too large");

  jpeg_start_decompress(&decoder.info);
  image.Create(static_cast<int>(width), static_cast<int>(height), false);
  unsigned char * const pixels = image.GetData();
  size_t const stride = static_cast<size_t>(width) * 3;
  while (decoder.info.output_scanline < decoder.info.output_height) {
    JSAMPROW row = pixels + stride * decoder.info.output_scanline;
    jpeg_read_scanlines(&decoder.info, &row, 1);
  }
  jpeg_finish_decompress(&decoder.info);
  return image;
}

std::string EncodeArtJpeg(wxImage const & image, int quality) {
  if (!image.IsOk()) throw ArtJpegError("no picture to encode");
  Compressor encoder;
  if (setjmp(encoder.error.jump) != 0) throw ArtJpegError(encoder.error.message);
  jpeg_mem_dest(&encoder.info, &encoder.buffer, &encoder.size);
  encoder.info.image_width = static_cast<JDIMENSION>(image.GetWidth());
  encoder.info.image_height = static_cast<JDIMENSION>(image.GetHeight());
  encoder.info.input_components = 3;
  encoder.info.in_color_space = JCS_RGB;
  jpeg_set_defaults(&encoder.info);
  jpeg_set_quality(&encoder.info, quality, TRUE);
  jpeg_start_compress(&encoder.info, TRUE);
  unsigned char * const pixels = image.GetData();
  size_t const stride = static_cast<size_t>(image.GetWidth()) * 3;
  while (encoder.info.next_scanline < encoder.info.image_height) {
    JSAMPROW row = pixels + stride * encoder.info.next_scanline;
    jpeg_write_scanlines(&encoder.info, &row, 1);
  }
  jpeg_finish_compress(&encoder.info);
  return std::string(reinterpret_cast<char const *>(encoder.buffer), encoder.size);
}

}  // namespace vx3
