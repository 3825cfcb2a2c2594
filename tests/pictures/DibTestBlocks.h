#pragma once
// DIB blocks put together byte by byte for the bitmap-operation tests, and
// an owner that frees them.

#include <cstdint>
#include <cstring>
#include <memory>
#include <vector>

#include "pictures/DibBlock.h"

using Bytes = std::vector<unsigned char>;

// A field of a packed header as a value: gtest binds references to its
// arguments, which a packed field's address must not meet.
template <typename T>
T Unpacked(T value) {
  return value;
}

struct DibFree {
  void operator()(DibBlock * dib) const { GlobalFree(dib); }
};
using OwnedDib = std::unique_ptr<DibBlock, DibFree>;

inline BITMAPINFOHEADER InfoHeader(int width, int height, int bits,
                                   std::uint32_t compression = BI_RGB, std::uint32_t used = 0) {
  BITMAPINFOHEADER header{};
  header.biSize = 40;
  header.biWidth = width;
  header.biHeight = height;
  header.biPlanes = 1;
  header.biBitCount = static_cast<std::uint16_t>(bits);
  header.biCompression = compression;
  header.biClrUsed = used;
  return header;
}

// A block of the given bytes, one after another.
template <typename... Parts>
OwnedDib MakeDib(Parts const &... parts) {
  Bytes bytes;
  auto append = [&bytes](auto const & part) {
    using Part = std::decay_t<decltype(part)>;
    if constexpr (std::is_same_v<Part, Bytes>) {
      bytes.insert(bytes.end(), part.begin(), part.end());
    } else {
      auto const * raw = reinterpret_cast<unsigned char const *>(&part);
      bytes.insert(bytes.end(), raw, raw + sizeof part);
    }
  };
  (append(parts), ...);
  OwnedDib dib(GlobalAlloc(bytes.size()));
  if (!bytes.empty()) std::memcpy(GlobalLock(dib.get()), bytes.data(), bytes.size());
  return dib;
}
