#include "printing/WindowDib.h"

#include <cstring>

#include <wx/image.h>

#include "controls/WindowSnapshot.h"

HDIB WindowToDib(wxWindow & window) {
  wxImage const picture = CaptureWindowImage(window);
  return picture.IsOk() ? ImageToDib(picture) : nullptr;
}

HDIB ImageToDib(wxImage const & image) {
  if (!image.IsOk() || image.GetWidth() <= 0 || image.GetHeight() <= 0) {
    return nullptr;
  }
  int const width = image.GetWidth();
  int const height = image.GetHeight();
  std::size_t const stride = DibStride(width, 24);
  HDIB dib = GlobalAlloc(sizeof(BITMAPINFOHEADER) + stride * std::size_t(height));
  if (dib == nullptr) {
    return nullptr;
  }
  auto * header = static_cast<BITMAPINFOHEADER *>(GlobalLock(dib));
  header->biSize = sizeof(BITMAPINFOHEADER);
  header->biWidth = width;
  header->biHeight = height;
  header->biPlanes = 1;
  header->biBitCount = 24;
  header->biCompression = BI_RGB;
  header->biSizeImage = std::uint32_t(stride * std::size_t(height));
  header->biXPelsPerMeter = 3780;  // 96 an inch
  header->biYPelsPerMeter = 3780;
  auto * rows = reinterpret_cast<std::uint8_t *>(header + 1);
  unsigned char const * rgb = image.GetData();
  for (int y = 0; y < height; ++y) {
    std::uint8_t * row = rows + stride * std::size_t(height - 1 - y);
    for (int x = 0; x < width; ++x, rgb += 3) {
      row[x * 3] = rgb[2];
      row[x * 3 + 1] = rgb[1];
      row[x * 3 + 2] = rgb[0];
    }
  }
  return dib;
}
