#include "pictures/DibBitmap.h"

#include <wx/palette.h>

#include <cstring>
#include <vector>

#include "pictures/RleDecoder.h"

namespace {

template <typename T>
T ReadAt(unsigned char const * block, std::size_t offset) {
  T value{};
  std::memcpy(&value, block + offset, sizeof value);
  return value;
}

// What a DIB's header says, checked against the block that holds it.
struct DibLayout {
  long long width = 0;
  long long height = 0;  // rows, positive
  bool topDown = false;
  unsigned bits = 0;
  std::uint32_t compression = BI_RGB;
  std::size_t tableOffset = 0;
  std::size_t entryBytes = 4;
  std::size_t entries = 0;  // usable colour table entries
  std::uint32_t masks[3] = {0, 0, 0};
  std::size_t pixelOffset = 0;
  std::size_t pixelBytes = 0;  // what the block holds behind pixelOffset
};

bool ReadCoreHeader(unsigned char const * block, std::size_t size, DibLayout & layout) {
  if (size < sizeof(BITMAPCOREHEADER)) return false;
  auto const core = ReadAt<BITMAPCOREHEADER>(block, 0);
  layout.width = core.bcWidth;
  layout.height = core.bcHeight;
  layout.bits = core.bcBitCount;
  if (layout.bits != 1 && layout.bits != 4 && layout.bits != 8 && layout.bits != 24) return false;
  layout.tableOffset = sizeof core;
  layout.entryBytes = 3;
  layout.entries = layout.bits <= 8 ? std::size_t{1} << layout.bits : 0;
  layout.pixelOffset = layout.tableOffset + layout.entries * 3;
  return true;
}

bool CompressionFits(unsigned bits, std::uint32_t compression) {
  switch (compression) {
    case BI_RGB:
      return bits == 1 || bits == 4 || bits == 8 || bits == 16 || bits == 24 || bits == 32;
    case BI_RLE8: return bits == 8;
    case BI_RLE4: return bits == 4;
    case BI_BITFIELDS: return bits == 16 || bits == 32;
    default: return false;
  }
}

// A 40-byte header is followed by the three masks of BI_BITFIELDS and then
// the colour table; longer headers carry the masks inside.
bool ReadInfoHeader(unsigned char const * block, std::size_t size, std::uint32_t headerSize,
                    DibLayout & layout) {
  if (headerSize < sizeof(BITMAPINFOHEADER) || headerSize > size) return false;
  auto const info = ReadAt<BITMAPINFOHEADER>(block, 0);
  layout.width = info.biWidth;
  layout.height = info.biHeight < 0 ? -static_cast<long long>(info.biHeight) : info.biHeight;
  layout.topDown = info.biHeight < 0;
  layout.bits = info.biBitCount;
  layout.compression = info.biCompression;
  if (!CompressionFits(layout.bits, layout.compression)) return false;
  // Run-length data is stored bottom-up only.
  if (layout.topDown && layout.compression != BI_RGB && layout.compression != BI_BITFIELDS)
    return false;
  std::size_t offset = headerSize;
  if (layout.compression == BI_BITFIELDS) {
    std::size_t const maskOffset = headerSize == sizeof info ? offset : sizeof info;
    if (maskOffset + sizeof layout.masks > size) return false;
    std::memcpy(layout.masks, block + maskOffset, sizeof layout.masks);
    if (headerSize == sizeof info) offset += sizeof layout.masks;
  } else if (layout.bits == 16) {
    layout.masks[0] = 0x7C00;
    layout.masks[1] = 0x03E0;
    layout.masks[2] = 0x001F;
  } else if (layout.bits == 32) {
    layout.masks[0] = 0xFF0000;
    layout.masks[1] = 0xFF00;
    layout.masks[2] = 0xFF;
  }
  std::size_t tableEntries = info.biClrUsed;
  if (tableEntries == 0 && layout.bits <= 8) tableEntries = std::size_t{1} << layout.bits;
  layout.tableOffset = offset;
  layout.entries = layout.bits <= 8 ? tableEntries : 0;
  layout.pixelOffset = offset + tableEntries * 4;
  if (layout.compression == BI_RLE4 || layout.compression == BI_RLE8) {
    // The stored size, when given, bounds the run-length data.
    if (layout.pixelOffset <= size && info.biSizeImage != 0 &&
        info.biSizeImage < size - layout.pixelOffset)
      layout.pixelBytes = info.biSizeImage;
  }
  return true;
}

bool ReadLayout(HDIB dib, DibLayout & layout) {
  std::size_t const size = GlobalSize(dib);
  if (dib == nullptr || size < sizeof(std::uint32_t)) return false;
  auto const * const block = static_cast<unsigned char const *>(GlobalLock(dib));
  auto const headerSize = ReadAt<std::uint32_t>(block, 0);
  bool const read = headerSize == sizeof(BITMAPCOREHEADER)
                        ? ReadCoreHeader(block, size, layout)
                        : ReadInfoHeader(block, size, headerSize, layout);
  if (!read || layout.width <= 0 || layout.height <= 0 ||
      layout.width * layout.height > kMaxDibPixels || layout.pixelOffset > size)
    return false;
  if (layout.pixelBytes == 0) layout.pixelBytes = size - layout.pixelOffset;
  if (layout.compression == BI_RLE4 || layout.compression == BI_RLE8) return true;
  return DibStride(layout.width, layout.bits) * static_cast<std::size_t>(layout.height) <=
         layout.pixelBytes;
}

// A field under a mask, widened or narrowed to 8 bits with rounding.
struct Channel {
  explicit Channel(std::uint32_t mask) : mask_(mask) {
    if (mask == 0) return;
    while ((mask & 1u) == 0) {
      mask >>= 1;
      ++shift_;
    }
    max_ = mask;
  }
  unsigned char operator()(std::uint32_t pixel) const {
    if (max_ == 0) return 0;
    std::uint64_t const value = (pixel & mask_) >> shift_;
    return static_cast<unsigned char>((value * 255 + max_ / 2) / max_);
  }

private:
  std::uint32_t mask_;
  unsigned shift_ = 0;
  std::uint64_t max_ = 0;
};

void DecodeIndexedRow(unsigned char const * row, DibLayout const & layout,
                      std::vector<unsigned char> const & table, unsigned char * out) {
  unsigned const perByte = 8 / layout.bits;
  unsigned const mask = (1u << layout.bits) - 1;
  for (long long x = 0; x < layout.width; ++x, out += 3) {
    unsigned const byte = row[x / perByte];
    unsigned const shift = 8 - layout.bits * (static_cast<unsigned>(x % perByte) + 1);
    std::size_t const index = (byte >> shift) & mask;
    if (index < layout.entries)
      std::memcpy(out, &table[index * 3], 3);
    else
      out[0] = out[1] = out[2] = 0;
  }
}

void DecodeRow(unsigned char const * row, DibLayout const & layout,
               std::vector<unsigned char> const & table, unsigned char * out) {
  if (layout.bits <= 8) {
    DecodeIndexedRow(row, layout, table, out);
  } else if (layout.bits == 24 || (layout.bits == 32 && layout.compression == BI_RGB)) {
    std::size_t const step = layout.bits / 8;
    for (long long x = 0; x < layout.width; ++x, row += step, out += 3) {
      out[0] = row[2];
      out[1] = row[1];
      out[2] = row[0];
    }
  } else {
    Channel const red(layout.masks[0]), green(layout.masks[1]), blue(layout.masks[2]);
    std::size_t const step = layout.bits / 8;
    for (long long x = 0; x < layout.width; ++x, row += step, out += 3) {
      std::uint32_t pixel = 0;
      std::memcpy(&pixel, row, step);  // little-endian, as the block stores it
      out[0] = red(pixel);
      out[1] = green(pixel);
      out[2] = blue(pixel);
    }
  }
}

// The colour table as red, green, blue triples.
std::vector<unsigned char> ReadTable(unsigned char const * block, DibLayout const & layout) {
  std::vector<unsigned char> table(layout.entries * 3);
  for (std::size_t i = 0; i < layout.entries; ++i) {
    unsigned char const * entry = block + layout.tableOffset + i * layout.entryBytes;
    table[i * 3] = entry[2];
    table[i * 3 + 1] = entry[1];
    table[i * 3 + 2] = entry[0];
  }
  return table;
}

// A DIB of `bits` (1, 24 or 32) from the picture, bottom-up.
HDIB MakeDib(wxImage const & image, unsigned bits) {
  int const width = image.GetWidth();
  int const height = image.GetHeight();
  std::size_t const stride = DibStride(width, bits);
  std::size_t const colors = bits == 1 ? 2 : 0;
  std::size_t const imageSize = stride * static_cast<std::size_t>(height);
  HDIB const dib = GlobalAlloc(sizeof(BITMAPINFOHEADER) + colors * 4 + imageSize);
  if (dib == nullptr) return nullptr;
  auto * const block = static_cast<unsigned char *>(GlobalLock(dib));
  BITMAPINFOHEADER const header{sizeof header,
                                width,
                                height,
                                1,
                                static_cast<std::uint16_t>(bits),
                                BI_RGB,
                                static_cast<std::uint32_t>(imageSize),
                                0,
                                0,
                                0,
                                0};
  std::memcpy(block, &header, sizeof header);
  if (colors == 2) {
    RGBQUAD const table[2] = {{0, 0, 0, 0}, {255, 255, 255, 0}};
    std::memcpy(block + sizeof header, table, sizeof table);
  }
  unsigned char * const pixels = block + sizeof header + colors * 4;
  unsigned char const * const rgb = image.GetData();
  unsigned char const * const alpha = image.HasAlpha() ? image.GetAlpha() : nullptr;
  for (int y = 0; y < height; ++y) {
    unsigned char * out = pixels + stride * static_cast<std::size_t>(height - 1 - y);
    std::size_t const first = static_cast<std::size_t>(y) * static_cast<std::size_t>(width);
    unsigned char const * in = rgb + first * 3;
    for (int x = 0; x < width; ++x, in += 3) {
      if (bits == 1) {
        // Light pixels are the table's white entry.
        if (in[0] + in[1] + in[2] >= 384)
          out[x / 8] |= static_cast<unsigned char>(0x80u >> (x % 8));
        continue;
      }
      *out++ = in[2];
      *out++ = in[1];
      *out++ = in[0];
      if (bits == 32) *out++ = alpha != nullptr ? alpha[first + static_cast<std::size_t>(x)] : 0;
    }
  }
  return dib;
}

}  // namespace

HDIB DDBToDIB(wxBitmap const & bitmap, std::uint32_t compression, wxPalette const * palette) {
  static_cast<void>(palette);
  if (compression == BI_BITFIELDS) return nullptr;
  if (compression != BI_RGB || !bitmap.IsOk()) return nullptr;
  int const depth = bitmap.GetDepth();
  unsigned const bits = depth == 1 ? 1 : depth == 32 ? 32 : 24;
  return MakeDib(bitmap.ConvertToImage(), bits);
}

HDIB BitmapToDIB(wxBitmap const & bitmap, wxPalette const * palette) {
  static_cast<void>(palette);
  if (!bitmap.IsOk()) return nullptr;
  return MakeDib(bitmap.ConvertToImage(), bitmap.GetDepth() == 1 ? 1 : 24);
}

HDIB ImageToDIB(wxImage const & image) {
  if (!image.IsOk() || image.GetWidth() <= 0 || image.GetHeight() <= 0) return nullptr;
  return MakeDib(image, 24);
}

wxImage DibToImage(HDIB dib) {
  DibLayout layout;
  if (!ReadLayout(dib, layout)) return wxImage();
  auto const * const block = static_cast<unsigned char const *>(GlobalLock(dib));
  std::vector<unsigned char> const table = ReadTable(block, layout);
  std::size_t const stride = DibStride(layout.width, layout.bits);
  auto const rows = static_cast<std::size_t>(layout.height);
  unsigned char const * pixels = block + layout.pixelOffset;
  std::vector<unsigned char> unpacked;
  if (layout.compression == BI_RLE4 || layout.compression == BI_RLE8) {
    unpacked.assign(stride * rows, 0);
    if (!DecodeRle(pixels, layout.pixelBytes, layout.bits, static_cast<long>(layout.width),
                   static_cast<long>(layout.height), unpacked.data(), stride))
      return wxImage();
    pixels = unpacked.data();
  }
  int const width = static_cast<int>(layout.width);
  wxImage image(width, static_cast<int>(rows), false);
  unsigned char * const out = image.GetData();
  for (std::size_t y = 0; y < rows; ++y) {
    std::size_t const stored = layout.topDown ? y : rows - 1 - y;
    DecodeRow(pixels + stride * stored, layout, table,
              out + y * static_cast<std::size_t>(width) * 3);
  }
  return image;
}

wxBitmap DIBToDDB(HDIB dib) {
  wxImage const image = DibToImage(dib);
  return image.IsOk() ? wxBitmap(image, 24) : wxBitmap();
}
