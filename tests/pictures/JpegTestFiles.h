#pragma once
// JPEG files as libjpeg itself writes them from top-down RGB rows: what a
// coder's output is compared with, or input it did not write.

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <string>

#include <jpeglib.h>

// `quality` 0 keeps libjpeg's default (75); `progressive` uses its standard
// script (10 scans for colour).
inline std::string LibjpegEncode(unsigned char const * rgb, int width, int height, int quality = 0,
                                 bool progressive = false) {
  jpeg_compress_struct info{};
  jpeg_error_mgr error{};
  info.err = jpeg_std_error(&error);
  jpeg_create_compress(&info);
  unsigned char * buffer = nullptr;
  unsigned long size = 0;
  jpeg_mem_dest(&info, &buffer, &size);
  info.image_width = static_cast<JDIMENSION>(width);
  info.image_height = static_cast<JDIMENSION>(height);
  info.input_components = 3;
  info.in_color_space = JCS_RGB;
  jpeg_set_defaults(&info);
  if (quality > 0) jpeg_set_quality(&info, quality, FALSE);
  if (progressive) jpeg_simple_progression(&info);
  jpeg_start_compress(&info, TRUE);
  for (int y = 0; y < height; ++y) {
    JSAMPROW row = const_cast<JSAMPROW>(rgb + static_cast<std::size_t>(y) * width * 3);
    jpeg_write_scanlines(&info, &row, 1);
  }
  jpeg_finish_compress(&info);
  jpeg_destroy_compress(&info);
  std::string bytes(reinterpret_cast<char const *>(buffer), size);
  std::free(buffer);
  return bytes;
}
