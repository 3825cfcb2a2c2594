// DIBs of every depth and compression turned into pictures, checked pixel by
// pixel, and blocks whose headers lie, which must be refused without
// reading or writing outside the block.
#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "DibTestBlocks.h"
#include "pictures/DibBitmap.h"

namespace {

struct Rgb {
  int red, green, blue;
};

Bytes Quads(std::vector<Rgb> const & colors) {
  Bytes table;
  for (Rgb const & color : colors)
    table.insert(table.end(),
                 {static_cast<unsigned char>(color.blue), static_cast<unsigned char>(color.green),
                  static_cast<unsigned char>(color.red), 0});
  return table;
}

std::vector<Rgb> SixteenColors() {
  std::vector<Rgb> colors;
  colors.reserve(16);
  for (int i = 0; i < 16; ++i) colors.push_back({i * 16, 255 - i * 16, i * 8});
  return colors;
}

struct DecodeCase {
  std::string name;
  OwnedDib dib;
  Rgb topLeft, topRight, bottomLeft, bottomRight;
};

// 2 x 2 pictures; the stored rows are bottom-up unless the height is negative.
std::vector<DecodeCase> DecodeCases() {
  std::vector<DecodeCase> cases;
  Rgb const dark{10, 20, 30}, warm{200, 100, 50};
  cases.push_back(
      {"1 bit",
       MakeDib(InfoHeader(2, 2, 1), Quads({dark, warm}), Bytes{0x80, 0, 0, 0, 0x40, 0, 0, 0}), dark,
       warm, warm, dark});
  std::vector<Rgb> const sixteen = SixteenColors();
  cases.push_back(
      {"4 bits", MakeDib(InfoHeader(2, 2, 4), Quads(sixteen), Bytes{0x34, 0, 0, 0, 0x12, 0, 0, 0}),
       sixteen[1], sixteen[2], sixteen[3], sixteen[4]});
  // Five colours in use; an index past them is black.
  cases.push_back(
      {"8 bits, short table",
       MakeDib(InfoHeader(2, 2, 8, BI_RGB, 5), Quads({dark, warm, {1, 2, 3}, {4, 5, 6}, {7, 8, 9}}),
               Bytes{4, 7, 0, 0, 0, 1, 0, 0}),
       dark,
       warm,
       {7, 8, 9},
       {0, 0, 0}});
  cases.push_back(
      {"16 bits 5-5-5",
       MakeDib(InfoHeader(2, 2, 16), Bytes{0x1F, 0x00, 0x10, 0x42, 0x00, 0x7C, 0x00, 0x02}),
       {255, 0, 0},
       {0, 132, 0},
       {0, 0, 255},
       {132, 132, 132}});
  cases.push_back(
      {"16 bits 5-6-5 by masks",
       MakeDib(InfoHeader(2, 2, 16, BI_BITFIELDS), std::uint32_t{0xF800}, std::uint32_t{0x07E0},
               std::uint32_t{0x001F}, Bytes{0x00, 0xF8, 0x00, 0x04, 0xE0, 0x07, 0x1F, 0x00}),
       {0, 255, 0},
       {0, 0, 255},
       {255, 0, 0},
       {0, 130, 0}});
  cases.push_back(
      {"24 bits",
       MakeDib(InfoHeader(2, 2, 24), Bytes{1, 2, 3, 4, 5, 6, 0, 0, 7, 8, 9, 10, 11, 12, 0, 0}),
       {9, 8, 7},
       {12, 11, 10},
       {3, 2, 1},
       {6, 5, 4}});
  cases.push_back(
      {"24 bits top-down",
       MakeDib(InfoHeader(2, -2, 24), Bytes{1, 2, 3, 4, 5, 6, 0, 0, 7, 8, 9, 10, 11, 12, 0, 0}),
       {3, 2, 1},
       {6, 5, 4},
       {9, 8, 7},
       {12, 11, 10}});
  cases.push_back(
      {"32 bits, fourth byte ignored",
       MakeDib(InfoHeader(2, 2, 32), Bytes{1, 2, 3, 99, 4, 5, 6, 99, 7, 8, 9, 99, 10, 11, 12, 99}),
       {9, 8, 7},
       {12, 11, 10},
       {3, 2, 1},
       {6, 5, 4}});
  cases.push_back(
      {"32 bits, red in the low byte",
       MakeDib(InfoHeader(2, 2, 32, BI_BITFIELDS), std::uint32_t{0xFF}, std::uint32_t{0xFF00},
               std::uint32_t{0xFF0000}, Bytes{1, 2, 3, 0, 4, 5, 6, 0, 7, 8, 9, 0, 10, 11, 12, 0}),
       {7, 8, 9},
       {10, 11, 12},
       {1, 2, 3},
       {4, 5, 6}});
  BITMAPCOREHEADER const core{12, 2, 2, 1, 8};
  Bytes coreTable(256 * 3, 0);
  coreTable[3] = 30, coreTable[4] = 20, coreTable[5] = 10;  // entry 1: blue, green, red
  coreTable[6] = 50, coreTable[7] = 100, coreTable[8] = 200;
  cases.push_back({"core header",
                   MakeDib(core, coreTable, Bytes{1, 2, 0, 0, 2, 1, 0, 0}),
                   {200, 100, 50},
                   dark,
                   dark,
                   {200, 100, 50}});
  // Runs of two, each row ended, then the end of the picture.
  cases.push_back({"run-length 8 bits",
                   MakeDib(InfoHeader(2, 2, 8, BI_RLE8, 3), Quads({dark, warm, {1, 2, 3}}),
                           Bytes{2, 1, 0, 0, 1, 2, 1, 0, 0, 1}),
                   {1, 2, 3},
                   dark,
                   warm,
                   warm});
  cases.push_back(
      {"run-length 4 bits",
       MakeDib(InfoHeader(2, 2, 4, BI_RLE4), Quads(sixteen), Bytes{2, 0x12, 0, 0, 2, 0x34, 0, 1}),
       sixteen[3], sixteen[4], sixteen[1], sixteen[2]});
  return cases;
}

void ExpectPixel(wxImage const & image, int x, int y, Rgb const & expected) {
  SCOPED_TRACE(testing::Message() << "pixel " << x << "," << y);
  EXPECT_EQ(image.GetRed(x, y), expected.red);
  EXPECT_EQ(image.GetGreen(x, y), expected.green);
  EXPECT_EQ(image.GetBlue(x, y), expected.blue);
}

TEST(DibDecode, EveryDepthAndCompressionGivesItsColoursTopRowFirst) {
  for (DecodeCase const & test : DecodeCases()) {
    SCOPED_TRACE(test.name);
    wxImage const image = DibToImage(test.dib.get());
    ASSERT_TRUE(image.IsOk());
    ASSERT_EQ(image.GetSize(), wxSize(2, 2));
    ExpectPixel(image, 0, 0, test.topLeft);
    ExpectPixel(image, 1, 0, test.topRight);
    ExpectPixel(image, 0, 1, test.bottomLeft);
    ExpectPixel(image, 1, 1, test.bottomRight);
  }
}

TEST(DibDecode, HeadersThatLieAreRefused) {
  Bytes const rows24(16, 0);
  Bytes const table(1024, 0);
  struct Case {
    std::string name;
    OwnedDib dib;
  };
  BITMAPINFOHEADER lyingSize = InfoHeader(2, 2, 24);
  lyingSize.biSize = 400;
  Case cases[] = {
      {"no block", nullptr},
      {"two bytes", MakeDib(std::uint16_t{40})},
      {"header cut short", MakeDib(std::uint32_t{40}, Bytes(26, 0))},
      {"header larger than the block", MakeDib(lyingSize, rows24)},
      {"no width", MakeDib(InfoHeader(0, 2, 24), rows24)},
      {"lowest height", MakeDib(InfoHeader(2, INT_MIN, 24), rows24)},
      {"2 bits", MakeDib(InfoHeader(2, 2, 2), table, rows24)},
      {"masks on 24 bits", MakeDib(InfoHeader(2, 2, 24, BI_BITFIELDS), rows24)},
      {"runs on 24 bits", MakeDib(InfoHeader(2, 2, 24, BI_RLE8), rows24)},
      {"unknown compression", MakeDib(InfoHeader(2, 2, 24, 4), rows24)},
      {"table past the block", MakeDib(InfoHeader(2, 2, 8, BI_RGB, 1000), table, rows24)},
      {"rows past the block", MakeDib(InfoHeader(2, 2, 24), Bytes(15, 0))},
      {"masks past the block", MakeDib(InfoHeader(2, 2, 16, BI_BITFIELDS), Bytes(8, 0))},
      {"too many pixels", MakeDib(InfoHeader(100000, 100000, 8, BI_RLE8), table, Bytes{0, 1})},
      {"runs top-down", MakeDib(InfoHeader(2, -2, 8, BI_RLE8), table, Bytes{2, 1, 0, 1})},
      {"runs without their end", MakeDib(InfoHeader(2, 2, 8, BI_RLE8), table, Bytes{2, 1, 0, 0})},
      {"core header cut short", MakeDib(std::uint32_t{12}, std::uint32_t{0x00020002})},
      {"core header with 16 bits", MakeDib(BITMAPCOREHEADER{12, 2, 2, 1, 16}, rows24)},
  };
  for (Case const & test : cases) {
    SCOPED_TRACE(test.name);
    EXPECT_FALSE(DibToImage(test.dib.get()).IsOk());
    EXPECT_FALSE(DIBToDDB(test.dib.get()).IsOk());
  }
}

}  // namespace
