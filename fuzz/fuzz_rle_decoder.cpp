// Run-length data from anywhere: the first two bytes give the width and
// height (up to 255) and the depth; the decoder writes inside the rows only,
// which AddressSanitizer checks on an exactly sized buffer.
#include <cstddef>
#include <cstdint>
#include <vector>

#include "pictures/DibBlock.h"
#include "pictures/RleDecoder.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
  if (size < 3) return 0;
  long const width = data[0] != 0 ? data[0] : 1;
  long const height = data[1] & 0x7F ? data[1] & 0x7F : 1;
  unsigned const bits = (data[1] & 0x80) != 0 ? 4 : 8;
  std::size_t const stride = DibStride(width, bits);
  std::vector<unsigned char> rows(stride * static_cast<std::size_t>(height));
  DecodeRle(data + 2, size - 2, bits, width, height, rows.data(), stride);
  return 0;
}
