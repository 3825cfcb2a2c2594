// JPEG streams from anywhere: VxJpeg gives a top-down 24-bit DIB of the
// size its header states, or no DIB and a message.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <sstream>
#include <string>

#include "pictures/VxJpeg.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
  std::istringstream stream(std::string(reinterpret_cast<char const *>(data), size));
  VxJpeg const jpeg(stream);
  if (jpeg.GetDIB() == nullptr) {
    if (jpeg.GetErrorMessage().empty()) std::abort();
    return 0;
  }
  BITMAPINFOHEADER header{};
  std::memcpy(&header, GlobalLock(jpeg.GetDIB()), sizeof header);
  if (header.biBitCount != 24 || header.biHeight >= 0 ||
      GlobalSize(jpeg.GetDIB()) !=
          40 + DibStride(header.biWidth, 24) * static_cast<std::size_t>(-header.biHeight))
    std::abort();
  return 0;
}
