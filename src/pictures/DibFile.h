#pragma once
// DIB blocks written as BMP files: a 14-byte file header in front of the
// block.

#include <cstdint>
#include <iosfwd>

#include "pictures/DibBlock.h"

#pragma pack(push, 2)
struct BITMAPFILEHEADER {
  std::uint16_t bfType;  // "BM"
  std::uint32_t bfSize;
  std::uint16_t bfReserved1;
  std::uint16_t bfReserved2;
  std::uint32_t bfOffBits;
};
#pragma pack(pop)
static_assert(sizeof(BITMAPFILEHEADER) == 14, "the file header is stored byte for byte");

constexpr std::uint16_t kBmpSignature = 0x4D42;

// The file header WriteDIB puts in front of the block. Its pixel offset is
// the header size + 14 + (4 << bit count), the shift count taken modulo 32
// as the processor does: right for colour-table pictures only (a 24-bit
// picture gets 67108918, a 32-bit one 58); SaveDIB writes the exact offset.
BITMAPFILEHEADER WriteDIBFileHeader(HDIB dib);

// Writes the file header and the whole block to `file` (UTF-8 path), all or
// nothing: a failure leaves any old file as it was. Nonzero on success; 0 for
// a null block, one too small for its header, or a file that cannot be
// written.
int WriteDIB(wchar_t const * file, HDIB dib);

// Writes an exact BMP of a block with a 40-byte header to `file`: the image
// size is stored back into the block's biSizeImage (for BI_RLE4 and BI_RLE8
// the stored one is kept). 0 for a null block, a block without a 40-byte
// header, or one shorter than its header says; 1 on success. Throws
// Exception when the stream fails to take the bytes.
int SaveDIB(HDIB dib, std::ostream & file);
