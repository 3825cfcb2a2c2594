#include "pictures/DibFile.h"

#include <boost/locale/encoding_utf.hpp>

#include <cstring>
#include <ostream>
#include <string>

#include "utl/AtomicFile.h"
#include "utl/Exception.h"
#include "utl/ExceptionMessage.h"

namespace {

constexpr std::size_t kBitCountOffset = 14;  // biBitCount inside an info header

}  // namespace

BITMAPFILEHEADER WriteDIBFileHeader(HDIB dib) {
  auto const * const block = static_cast<unsigned char const *>(GlobalLock(dib));
  std::uint32_t headerSize = 0;
  std::uint16_t bitCount = 0;
  std::memcpy(&headerSize, block, sizeof headerSize);
  if (headerSize == sizeof(BITMAPCOREHEADER))
    std::memcpy(&bitCount, block + offsetof(BITMAPCOREHEADER, bcBitCount), sizeof bitCount);
  else
    std::memcpy(&bitCount, block + kBitCountOffset, sizeof bitCount);
  BITMAPFILEHEADER header{};
  header.bfType = kBmpSignature;
  header.bfSize = static_cast<std::uint32_t>(GlobalSize(dib) + sizeof header);
  header.bfOffBits =
      headerSize + static_cast<std::uint32_t>(sizeof header) + (4u << (bitCount % 32u));
  return header;
}

int WriteDIB(wchar_t const * file, HDIB dib) {
  if (dib == nullptr || file == nullptr || GlobalSize(dib) < kBitCountOffset + 2) return 0;
  BITMAPFILEHEADER const header = WriteDIBFileHeader(dib);
  std::string bytes(reinterpret_cast<char const *>(&header), sizeof header);
  bytes.append(static_cast<char const *>(GlobalLock(dib)), GlobalSize(dib));
  try {
    vx3::WriteFileAtomically(boost::locale::conv::utf_to_utf<char>(file), bytes);
  } catch (Exception const &) {
    return 0;
  }
  return 1;
}

int SaveDIB(HDIB dib, std::ostream & file) {
  if (dib == nullptr || GlobalSize(dib) < sizeof(BITMAPINFOHEADER)) return 0;
  auto * const block = static_cast<unsigned char *>(GlobalLock(dib));
  BITMAPINFOHEADER info{};
  std::memcpy(&info, block, sizeof info);
  if (info.biSize != sizeof info) return 0;
  std::size_t const tableSize = DibPaletteSize(block);
  std::size_t dibSize = sizeof info + tableSize;
  if (info.biCompression == BI_RLE8 || info.biCompression == BI_RLE4) {
    dibSize += info.biSizeImage;
  } else {
    long long const rows = info.biHeight < 0 ? -static_cast<long long>(info.biHeight)
                                             : static_cast<long long>(info.biHeight);
    std::size_t const stride = info.biWidth > 0 ? DibStride(info.biWidth, info.biBitCount) : 0;
    // Checked before multiplying: a lying header could wrap the product.
    if (stride != 0 && static_cast<std::size_t>(rows) > GlobalSize(dib) / stride) return 0;
    std::size_t const imageSize = stride * static_cast<std::size_t>(rows);
    if (dibSize + imageSize > GlobalSize(dib)) return 0;
    info.biSizeImage = static_cast<std::uint32_t>(imageSize);
    std::memcpy(block, &info, sizeof info);
    dibSize += imageSize;
  }
  if (dibSize > GlobalSize(dib)) return 0;
  BITMAPFILEHEADER header{};
  header.bfType = kBmpSignature;
  header.bfSize = static_cast<std::uint32_t>(dibSize + sizeof header);
  header.bfOffBits = static_cast<std::uint32_t>(sizeof header + sizeof info + tableSize);
  file.write(reinterpret_cast<char const *>(&header), sizeof header);
  file.write(reinterpret_cast<char const *>(block), static_cast<std::streamsize>(dibSize));
  if (!file)
    throw Exception(ExceptionMessage::translate("The picture could not be written to the file."));
  return 1;
}
