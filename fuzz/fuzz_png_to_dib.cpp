// PNGs from anywhere read from memory: the first byte picks the reading
// options, the rest is the file. A read gives a DIB whose sizes agree with
// its header, or an error code with a text and no DIB.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "pictures/DibBlock.h"
#include "pictures/PngCoder.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
  // A memory source of size 0 means "size unknown": the reader then trusts
  // the buffer, so the file must have at least one byte.
  if (size < 2) return 0;
  VxPngInfo * const info = VxPngCreate(VX_PNG_PNG_TO_DIB);
  std::uint8_t const options = data[0];
  info->read.useAlpha = (options & 1) != 0;
  info->read.useFileBackground = (options & 2) != 0;
  info->read.useCustomBackground = (options & 4) != 0;
  info->read.customRed = 10;
  info->read.screenGammaFlag = (options & 8) != 0;
  info->read.screenGamma = (options & 16) != 0 ? 2.2 : 1.0;
  info->read.maxDibBytes = 32u << 20;
  VxPngSetInputMemory(info, data + 1, size - 1);
  int const code = VxPngToDib(info);
  if (code == VX_PNG_OK) {
    BITMAPINFOHEADER header{};
    std::memcpy(&header, info->read.dib, sizeof header);
    std::size_t const rows =
        DibStride(header.biWidth, header.biBitCount) * static_cast<std::size_t>(header.biHeight);
    if (info->read.bitsSize != rows ||
        info->read.dibSize != info->read.colorTableSize + info->read.bitsSize)
      std::abort();
    // Every byte of the result is readable.
    unsigned sum = 0;
    auto const * const bytes = static_cast<unsigned char const *>(info->read.dib);
    for (std::size_t i = 0; i < info->read.dibSize; i += 61) sum += bytes[i];
    (void)sum;
    VxPngFreeDib(info);
  } else if (info->read.dib != nullptr || info->errorText[0] == 0) {
    std::abort();
  }
  VxPngFree(info);
  return 0;
}
