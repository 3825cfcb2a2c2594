#include "pictures/DibBlock.h"

#include <cstdlib>
#include <cstring>
#include <new>

// The size sits in front of the pixels' block, padded so that the block
// keeps malloc's alignment.
struct DibBlock {
  alignas(std::max_align_t) std::size_t size;
};

HDIB GlobalAlloc(std::size_t bytes) {
  if (bytes > static_cast<std::size_t>(-1) - sizeof(DibBlock)) return nullptr;
  void * const memory = std::calloc(1, sizeof(DibBlock) + bytes);
  if (memory == nullptr) return nullptr;
  auto * const block = new (memory) DibBlock;
  block->size = bytes;
  return block;
}

HDIB GlobalFree(HDIB dib) {
  std::free(dib);
  return nullptr;
}

std::size_t GlobalSize(HDIB dib) { return dib != nullptr ? dib->size : 0; }

void * GlobalLock(HDIB dib) { return dib != nullptr ? dib + 1 : nullptr; }

unsigned DibColorCount(void const * header) {
  std::uint32_t size = 0;
  std::memcpy(&size, header, sizeof size);
  unsigned bits = 0;
  std::uint32_t used = 0;
  if (size == sizeof(BITMAPCOREHEADER)) {
    BITMAPCOREHEADER core{};
    std::memcpy(&core, header, sizeof core);
    bits = core.bcBitCount;
  } else {
    BITMAPINFOHEADER info{};
    std::memcpy(&info, header, sizeof info);
    bits = info.biBitCount;
    used = info.biClrUsed;
  }
  if (used != 0) return used;
  return bits == 1 || bits == 2 || bits == 4 || bits == 8 ? 1u << bits : 0u;
}

std::size_t DibPaletteSize(void const * header) {
  std::uint32_t size = 0;
  std::memcpy(&size, header, sizeof size);
  return static_cast<std::size_t>(DibColorCount(header)) *
         (size == sizeof(BITMAPCOREHEADER) ? 3 : 4);
}

std::size_t DibStride(long long width, unsigned bitCount) {
  return static_cast<std::size_t>((static_cast<unsigned long long>(width) * bitCount + 31) / 32 *
                                  4);
}
