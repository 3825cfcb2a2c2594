// Run-length DIB pixels: decoded alike to wx's BMP reader, and hostile runs
// kept inside the rows.
#include <gtest/gtest.h>

#include <wx/image.h>
#include <wx/mstream.h>

#include <cstring>

#include "pictures/DibBlock.h"
#include "pictures/RleDecoder.h"

namespace {

using Bytes = std::vector<unsigned char>;

RGBQUAD Entry(unsigned i) {
  return {static_cast<std::uint8_t>(i), static_cast<std::uint8_t>(255 - i),
          static_cast<std::uint8_t>(i * 3), 0};
}

// A BMP file of the run-length data, as wx reads it.
wxImage ReadWithWx(Bytes const & data, unsigned bits, int width, int height) {
  unsigned const colours = 1u << bits;
  BITMAPINFOHEADER header{40,
                          width,
                          height,
                          1,
                          static_cast<std::uint16_t>(bits),
                          bits == 8 ? BI_RLE8 : BI_RLE4,
                          static_cast<std::uint32_t>(data.size()),
                          0,
                          0,
                          colours,
                          0};
  std::uint32_t const offset = 14 + 40 + colours * 4;
  std::uint32_t const fileSize = offset + static_cast<std::uint32_t>(data.size());
  Bytes file = {'B', 'M'};
  file.resize(14);
  std::memcpy(&file[2], &fileSize, 4);
  std::memcpy(&file[10], &offset, 4);
  file.insert(file.end(), reinterpret_cast<unsigned char *>(&header),
              reinterpret_cast<unsigned char *>(&header) + 40);
  for (unsigned i = 0; i < colours; ++i) {
    RGBQUAD const entry = Entry(i);
    file.insert(file.end(), {entry.rgbBlue, entry.rgbGreen, entry.rgbRed, 0});
  }
  file.insert(file.end(), data.begin(), data.end());
  if (wxImage::FindHandler(wxBITMAP_TYPE_BMP) == nullptr) wxImage::AddHandler(new wxBMPHandler);
  wxMemoryInputStream stream(file.data(), file.size());
  return wxImage(stream, wxBITMAP_TYPE_BMP);
}

unsigned IndexAt(Bytes const & rows, std::size_t stride, unsigned bits, int x, int y) {
  unsigned char const byte = rows[stride * static_cast<std::size_t>(y) + (bits == 8 ? x : x / 2)];
  return bits == 8 ? byte : (x % 2 == 0 ? byte >> 4 : byte & 0x0F);
}

}  // namespace

TEST(RleDecoder, DecodesAsWxReadsTheSameBitmap) {
  struct Case {
    char const * name;
    unsigned bits;
    Bytes data;  // 7 x 4, every pixel reached
  } const cases[] = {
      {"8 bits: runs, odd and even literals", 8, {4, 5,   0, 3, 9, 10, 11, 0, 0, 0, 0,
                                                  7, 1,   2, 3, 4, 5,  6,  7, 0, 0, 0,
                                                  7, 200, 0, 0, 2, 3,  5,  4, 0, 1}},
      {"4 bits: alternating runs, literals with padding",
       4,
       {7, 0x12, 0,    0, 0, 5, 0x34, 0x56, 0x70, 0,    2,    0x88, 0,
        0, 7,    0xF0, 0, 0, 0, 7,    0x12, 0x34, 0x56, 0x70, 0,    1}},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.name);
    wxImage const expected = ReadWithWx(c.data, c.bits, 7, 4);
    ASSERT_TRUE(expected.IsOk());
    std::size_t const stride = DibStride(7, c.bits);
    Bytes rows(stride * 4);
    ASSERT_TRUE(DecodeRle(c.data.data(), c.data.size(), c.bits, 7, 4, rows.data(), stride));
    for (int y = 0; y < 4; ++y)
      for (int x = 0; x < 7; ++x) {
        RGBQUAD const entry = Entry(IndexAt(rows, stride, c.bits, x, y));
        int const wxRow = 3 - y;  // wx holds the top row first
        EXPECT_EQ(expected.GetRed(x, wxRow), entry.rgbRed) << x << "," << y;
        EXPECT_EQ(expected.GetGreen(x, wxRow), entry.rgbGreen) << x << "," << y;
      }
  }
}

TEST(RleDecoder, HostileDataStaysInsideTheRows) {
  struct Case {
    char const * name;
    unsigned bits;
    Bytes data;
    bool complete;
    Bytes rows;  // 3 x 2 at 8 bits (stride 4) or 4 bits (stride 4)
  } const cases[] = {
      {"run past the row's end is cut there",
       8,
       {255, 9, 0, 0, 1, 4, 0, 1},
       true,
       {9, 9, 9, 0, 4, 0, 0, 0}},
      {"literal past the row's end is cut there",
       8,
       {0, 5, 1, 2, 3, 4, 5, 0, 0, 1},
       true,
       {1, 2, 3, 0, 0, 0, 0, 0}},
      {"delta moves right and up, unreached pixels keep 0",
       8,
       {0, 2, 1, 1, 1, 6, 0, 1},
       true,
       {0, 0, 0, 0, 0, 6, 0, 0}},
      {"delta out of the picture", 8, {0, 2, 200, 200, 3, 7, 0, 1}, true, {0, 0, 0, 0, 0, 0, 0, 0}},
      {"end of lines past the last row",
       8,
       {1, 1, 0, 0, 1, 2, 0, 0, 1, 3, 0, 0, 9, 9},
       true,
       {1, 0, 0, 0, 2, 0, 0, 0}},
      {"literal cut short", 8, {0, 6, 1, 2}, false, {0, 0, 0, 0, 0, 0, 0, 0}},
      {"no end mark", 8, {2, 8}, false, {8, 8, 0, 0, 0, 0, 0, 0}},
      {"delta cut short", 8, {0, 2, 1}, false, {0, 0, 0, 0, 0, 0, 0, 0}},
      {"4 bits: odd run past the row", 4, {9, 0xAB, 0, 1}, true, {0xAB, 0xA0, 0, 0, 0, 0, 0, 0}},
      {"6 bits are no run-length depth", 6, {2, 8, 0, 1}, false, {0, 0, 0, 0, 0, 0, 0, 0}},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.name);
    // Guard bytes on both sides catch a write outside the rows.
    Bytes buffer(4 + 8 + 4, 0xEE);
    std::fill(buffer.begin() + 4, buffer.begin() + 12, 0);
    EXPECT_EQ(DecodeRle(c.data.data(), c.data.size(), c.bits, 3, 2, buffer.data() + 4, 4),
              c.complete);
    EXPECT_EQ(Bytes(buffer.begin() + 4, buffer.begin() + 12), c.rows);
    EXPECT_EQ(Bytes(buffer.begin(), buffer.begin() + 4), Bytes(4, 0xEE));
    EXPECT_EQ(Bytes(buffer.begin() + 12, buffer.end()), Bytes(4, 0xEE));
  }
}
