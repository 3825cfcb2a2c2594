// PNGs read into DIBs: the background, transparency and gamma rules on files
// built chunk by chunk, the file facts, and damaged or hostile files.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <memory>

#include "PngTestFiles.h"
#include "pictures/DibBlock.h"
#include "pictures/PngCoder.h"
#include "utl/TestFiles.h"

namespace {

using Record = std::unique_ptr<VxPngInfo, decltype(&VxPngFree)>;

int gAllocations = 0;
int gFrees = 0;
void * CountedCalloc(std::size_t count, std::size_t size) {
  ++gAllocations;
  return std::calloc(count, size);
}
void CountedFree(void * block) {
  ++gFrees;
  std::free(block);
}

Record Reader(Bytes const & png) {
  Record info(VxPngCreate(VX_PNG_PNG_TO_DIB), VxPngFree);
  VxPngSetInputMemory(info.get(), png.data(), png.size());
  info->read.allocate = CountedCalloc;
  info->read.free = CountedFree;
  return info;
}

std::string Text(VxPngInfo const & info) {
  std::wstring const text(info.errorText);
  return std::string(text.begin(), text.end());
}

BITMAPINFOHEADER HeaderOf(VxPngInfo const & info) {
  BITMAPINFOHEADER header{};
  std::memcpy(&header, info.read.dib, sizeof header);
  return header;
}

Bytes Palette(VxPngInfo const & info) {
  auto const * const at = static_cast<unsigned char const *>(info.read.palette);
  return at != nullptr ? Bytes(at, at + info.read.paletteSize) : Bytes();
}

// The stored rows, bottom first, as the DIB holds them.
Bytes Bits(VxPngInfo const & info) {
  auto const * const at = static_cast<unsigned char const *>(info.read.bits);
  return Bytes(at, at + info.read.bitsSize);
}

Bytes Rgb16(unsigned red, unsigned green, unsigned blue) {
  return {static_cast<unsigned char>(red >> 8),   static_cast<unsigned char>(red),
          static_cast<unsigned char>(green >> 8), static_cast<unsigned char>(green),
          static_cast<unsigned char>(blue >> 8),  static_cast<unsigned char>(blue)};
}

Bytes GammaChunk(double gamma) {
  Bytes data;
  Put32(data, static_cast<std::uint32_t>(std::lround(gamma * 100000)));
  return data;
}

// The grey ramp entry that the table correction gives level `v` (0..255).
unsigned char Corrected(unsigned v, double fileGamma, double screenGamma) {
  return static_cast<unsigned char>(
      std::floor(std::pow(v / 255.0, 1.0 / (screenGamma * fileGamma)) * 255.0 + 0.5));
}

Bytes GreyRamp(unsigned entries) {
  Bytes ramp;
  for (unsigned i = 0; i < entries; ++i) {
    auto const level = static_cast<unsigned char>(i * 255 / (entries - 1));
    ramp.insert(ramp.end(), {level, level, level, 0});
  }
  return ramp;
}

struct ReadCase {
  char const * name;
  Bytes png;
  std::function<void(VxPngInfo &)> options;
  int bitCount;
  std::uint32_t compression;
  Bytes palette;  // blue, green, red, 0 per entry
  Bytes bits;     // bottom row first
};

}  // namespace

TEST(PngRead, BackgroundTransparencyAndDepthRules) {
  auto const none = [](VxPngInfo &) {};
  auto const withAlpha = [](VxPngInfo & info) { info.read.useAlpha = true; };
  auto const fileBackground = [](VxPngInfo & info) { info.read.useFileBackground = true; };
  auto const custom = [](VxPngInfo & info) {
    info.read.useCustomBackground = true;
    info.read.customRed = 10, info.read.customGreen = 20, info.read.customBlue = 30;
  };
  Bytes const plte = {255, 0, 0, 0, 255, 0, 0, 0, 255};
  Bytes bkgd;
  bkgd = {0, 200, 0, 100, 0, 50};
  Bytes ramp16 = GreyRamp(16);
  Bytes orangeAt3 = ramp16;
  orangeAt3[12] = 0, orangeAt3[13] = 128, orangeAt3[14] = 255;  // the default background
  Bytes const grey2 = {0, 0, 0, 0, 85, 85, 85, 0, 170, 170, 170, 0, 255, 255, 255, 0};
  ReadCase const cases[] = {
      {"RGB: 24 bits, blue first, file's top row last",
       PngBuilder(2, 2, 8, 2).Finish({{1, 2, 3, 4, 5, 6}, {7, 8, 9, 10, 11, 12}}),
       none,
       24,
       BI_RGB,
       {},
       {9, 8, 7, 12, 11, 10, 0, 0, 3, 2, 1, 6, 5, 4, 0, 0}},
      {"16-bit RGB keeps the high bytes",
       PngBuilder(1, 1, 16, 2).Finish({Rgb16(0x1234, 0x5678, 0x9ABC)}),
       none,
       24,
       BI_RGB,
       {},
       {0x9A, 0x56, 0x12, 0}},
      {"2-bit grey becomes nibbles of a 4-bit DIB",
       PngBuilder(3, 1, 2, 0).Finish({{0x1B}}),
       none,
       4,
       BI_RGB,
       grey2,
       {0x01, 0x20, 0, 0}},
      {"palette: the one transparent entry gets orange",
       PngBuilder(3, 1, 8, 3).Chunk("PLTE", plte).Chunk("tRNS", {255, 0}).Finish({{0, 1, 2}}),
       none,
       8,
       BI_RGB,
       {0, 0, 255, 0, 0, 128, 255, 0, 255, 0, 0, 0},
       {0, 1, 2, 0}},
      {"palette: a custom background fills the transparent entry",
       PngBuilder(3, 1, 8, 3).Chunk("PLTE", plte).Chunk("tRNS", {255, 0}).Finish({{0, 1, 2}}),
       custom,
       8,
       BI_RGB,
       {0, 0, 255, 0, 30, 20, 10, 0, 255, 0, 0, 0},
       {0, 1, 2, 0}},
      {"palette with tRNS and use alpha: 32 bits with masks",
       PngBuilder(2, 1, 8, 3).Chunk("PLTE", plte).Chunk("tRNS", {255, 0}).Finish({{0, 1}}),
       withAlpha,
       32,
       BI_BITFIELDS,
       {},
       {0, 0, 255, 255, 0, 255, 0, 0}},
      {"grey with alpha and use alpha",
       PngBuilder(1, 1, 8, 4).Finish({{100, 50}}),
       withAlpha,
       32,
       BI_BITFIELDS,
       {},
       {100, 100, 100, 50}},
      {"RGBA without a background: alpha stripped",
       PngBuilder(1, 1, 8, 6).Finish({{10, 20, 30, 0}}),
       none,
       24,
       BI_RGB,
       {},
       {30, 20, 10, 0}},
      {"RGBA on the file's background",
       PngBuilder(2, 1, 8, 6).Chunk("bKGD", bkgd).Finish({{1, 2, 3, 0, 4, 5, 6, 255}}),
       fileBackground,
       24,
       BI_RGB,
       {},
       {50, 100, 200, 6, 5, 4, 0, 0}},
      {"RGBA on a custom background",
       PngBuilder(2, 1, 8, 6).Finish({{1, 2, 3, 0, 4, 5, 6, 255}}),
       custom,
       24,
       BI_RGB,
       {},
       {30, 20, 10, 6, 5, 4, 0, 0}},
      {"16-bit RGBA on the file's 16-bit background",
       PngBuilder(1, 1, 16, 6).Chunk("bKGD", Rgb16(0xC800, 0x6400, 0x3200)).Finish({Bytes(8)}),
       fileBackground,
       24,
       BI_RGB,
       {},
       {50, 100, 200, 0}},
      {"16-bit RGBA on a custom background",
       PngBuilder(1, 1, 16, 6).Finish({{1, 2, 3, 4, 5, 6, 0, 0}}),
       custom,
       24,
       BI_RGB,
       {},
       {30, 20, 10, 0}},
      {"bKGD ignored unless asked for",
       PngBuilder(1, 1, 8, 6).Chunk("bKGD", bkgd).Finish({{1, 2, 3, 0}}),
       none,
       24,
       BI_RGB,
       {},
       {3, 2, 1, 0}},
      {"4-bit grey: transparent level painted orange",
       PngBuilder(2, 1, 4, 0).Chunk("tRNS", {0, 3}).Finish({{0x3F}}),
       none,
       4,
       BI_RGB,
       orangeAt3,
       {0x3F, 0, 0, 0}},
  };
  for (ReadCase const & c : cases) {
    SCOPED_TRACE(c.name);
    gAllocations = gFrees = 0;
    Record info = Reader(c.png);
    c.options(*info);
    ASSERT_EQ(VxPngToDib(info.get()), VX_PNG_OK) << Text(*info);
    BITMAPINFOHEADER const header = HeaderOf(*info);
    EXPECT_EQ(header.biSize, 40u);
    EXPECT_EQ(header.biBitCount, c.bitCount);
    EXPECT_EQ(header.biCompression, c.compression);
    EXPECT_EQ(header.biClrUsed, c.palette.size() / 4);
    EXPECT_EQ(Palette(*info), c.palette);
    EXPECT_EQ(Bits(*info), c.bits);
    if (c.compression == BI_BITFIELDS) {
      std::uint32_t masks[3] = {};
      std::memcpy(masks, static_cast<unsigned char *>(info->read.dib) + 40, sizeof masks);
      EXPECT_EQ(masks[0], 0xFF0000u);
      EXPECT_EQ(masks[1], 0xFF00u);
      EXPECT_EQ(masks[2], 0xFFu);
    }
    EXPECT_EQ(info->read.dibSize, info->read.colorTableSize + info->read.bitsSize);
    EXPECT_EQ(gAllocations, 1);
    VxPngFreeDib(info.get());
    EXPECT_EQ(gFrees, 1);
  }
}

TEST(PngRead, ScreenGammaCorrectsTheGreyRampByTheTable) {
  Bytes const png = PngBuilder(1, 1, 4, 0).Chunk("gAMA", GammaChunk(1.0)).Finish({{0}});
  struct Case {
    double screen;
    bool corrected;
  } const cases[] = {{2.2, true}, {1.04, false}, {0.5, true}};
  for (Case const & c : cases) {
    SCOPED_TRACE(c.screen);
    Record info = Reader(png);
    info->read.screenGammaFlag = true;
    info->read.screenGamma = c.screen;
    ASSERT_EQ(VxPngToDib(info.get()), VX_PNG_OK) << Text(*info);
    Bytes const palette = Palette(*info);
    ASSERT_EQ(palette.size(), 64u);
    for (unsigned i = 0; i < 16; ++i) {
      unsigned const level = i * 17;
      EXPECT_EQ(palette[4 * i], c.corrected ? Corrected(level, 1.0, c.screen) : level) << i;
    }
    VxPngFreeDib(info.get());
  }
}

TEST(PngRead, ScreenGammaCorrectsColourThroughLibpng) {
  // File gamma 1.0 on a 2.2 screen: v becomes 255 * (v / 255)^(1 / 2.2),
  // within libpng's table rounding; without a gAMA the file counts as sRGB.
  struct Case {
    Bytes chunk;
    double fileGamma;
  } const cases[] = {{GammaChunk(1.0), 1.0}, {{}, 0.45455}};
  for (Case const & c : cases) {
    SCOPED_TRACE(c.fileGamma);
    PngBuilder builder(3, 1, 8, 2);
    if (!c.chunk.empty()) builder.Chunk("gAMA", c.chunk);
    Bytes const png = builder.Finish({{64, 128, 192, 10, 20, 30, 255, 0, 100}});
    Record info = Reader(png);
    info->read.screenGammaFlag = true;
    info->read.screenGamma = 2.2;
    ASSERT_EQ(VxPngToDib(info.get()), VX_PNG_OK) << Text(*info);
    Bytes const bits = Bits(*info);
    unsigned const file[] = {192, 128, 64, 30, 20, 10, 100, 0, 255};  // blue first
    for (std::size_t i = 0; i < 9; ++i) {
      double const expected = 255.0 * std::pow(file[i] / 255.0, 1.0 / (2.2 * c.fileGamma));
      EXPECT_NEAR(bits[i], expected, 1.0) << i;
    }
    VxPngFreeDib(info.get());
  }
}

TEST(PngRead, FileFactsComeFromTheChunks) {
  Bytes phys;
  Put32(phys, 3780);
  Put32(phys, 3000);
  phys.push_back(1);
  Bytes const png = PngBuilder(3, 2, 1, 0, 1)
                        .Chunk("sRGB", {0})
                        .Chunk("gAMA", GammaChunk(0.45455))
                        .Chunk("pHYs", phys)
                        .Chunk("bKGD", {0, 1})
                        // Rows 101 and 010 in Adam7's passes 1, 4, 6 and 7.
                        .Finish({{0x80}, {0x80}, {0x00}, {0x40}});
  Record info = Reader(png);
  info->read.useFileBackground = true;
  ASSERT_EQ(VxPngToDib(info.get()), VX_PNG_OK) << Text(*info);
  VxPngFileFacts const & facts = info->read.facts;
  EXPECT_EQ(facts.colorType, 0);
  EXPECT_EQ(facts.bitDepth, 1);
  EXPECT_EQ(facts.bitsPerPixel, 1);
  EXPECT_EQ(facts.interlace, 1);
  EXPECT_TRUE(facts.hasGamma);
  EXPECT_DOUBLE_EQ(facts.gamma, 0.45455);
  EXPECT_TRUE(facts.hasResolution);
  EXPECT_EQ(facts.resolutionX, 3780u);
  EXPECT_EQ(facts.resolutionY, 3000u);
  EXPECT_EQ(facts.resolutionUnit, 1);
  // A grey level of 1 at depth 1 is white: 1 * 255 / (2 - 1).
  EXPECT_TRUE(facts.hasBackground);
  EXPECT_EQ(facts.backgroundRed, 255);
  EXPECT_EQ(facts.backgroundBlue, 255);
  // Interlaced rows land where they belong: 101 over 010.
  EXPECT_EQ(Bits(*info), (Bytes{0x40, 0, 0, 0, 0xA0, 0, 0, 0}));
  VxPngFreeDib(info.get());
}

TEST(PngRead, DamagedAndHostileFilesFailCleanly) {
  Bytes const good = PngBuilder(64, 64, 8, 2).Finish(std::vector<Bytes>(64, Bytes(192, 7)));
  Bytes truncated(good.begin(), good.end() - 30);
  Bytes badCrc = good;
  badCrc[29] ^= 0xFF;  // the IHDR's CRC
  Bytes const huge = PngBuilder(1000000, 1000000, 8, 6).Finish({Bytes(8)});
  Bytes const tooWide = PngBuilder(1000001, 1, 8, 0).Finish({Bytes(8)});
  struct Case {
    char const * name;
    Bytes png;
    int code;
    std::string text;  // empty: any "[libpng] " text
  } const cases[] = {
      {"truncated", truncated, VX_PNG_LIBPNG, "[libpng] read error: unexpected end of file"},
      {"bad CRC in IHDR", badCrc, VX_PNG_LIBPNG, ""},
      {"no PNG at all", Bytes(100, 'x'), VX_PNG_LIBPNG, ""},
      {"huge IHDR", huge, VX_PNG_MEMORY, "Unable to allocate memory"},
      {"wider than the limit", tooWide, VX_PNG_LIBPNG, ""},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.name);
    gAllocations = gFrees = 0;
    Record info = Reader(c.png);
    info->read.maxDibBytes = 64u << 20;
    EXPECT_EQ(VxPngToDib(info.get()), c.code);
    if (c.text.empty())
      EXPECT_EQ(Text(*info).rfind("[libpng] ", 0), 0u) << Text(*info);
    else
      EXPECT_EQ(Text(*info), c.text);
    EXPECT_EQ(info->read.dib, nullptr);
    EXPECT_EQ(gAllocations, gFrees);
  }
  // A chunk bomb: an ancillary chunk beyond the limit is dropped, the picture read.
  Bytes const bomb = PngBuilder(1, 1, 8, 0).Chunk("tEXt", Bytes(9u << 20, 'a')).Finish({{5}});
  Record info = Reader(bomb);
  EXPECT_EQ(VxPngToDib(info.get()), VX_PNG_OK) << Text(*info);
  VxPngFreeDib(info.get());
}

TEST(PngRead, FilesByNameAndTheirFailures) {
  Record info(VxPngCreate(VX_PNG_PNG_TO_DIB), VxPngFree);
  EXPECT_EQ(VxPngToDib(info.get()), VX_PNG_UNKNOWN);
  EXPECT_EQ(Text(*info), "Input filename not set");
  std::string const missing = Temp("missing.png");
  VxPngSetInputFile(info.get(), std::wstring(missing.begin(), missing.end()).c_str());
  EXPECT_EQ(VxPngToDib(info.get()), VX_PNG_READ);
  EXPECT_EQ(Text(*info), "Unable to read file");

  // A round trip through a file: DIB to PNG to the same DIB.
  Bytes dib(40 + 8 * 3);
  BITMAPINFOHEADER header{40, 2, 3, 1, 24, BI_RGB, 0, 0, 0, 0, 0};
  std::memcpy(dib.data(), &header, sizeof header);
  for (std::size_t i = 40; i < dib.size(); ++i)
    if ((i - 40) % 8 < 6) dib[i] = static_cast<unsigned char>(i * 37);
  std::string const path = Temp("round trip.png");
  std::wstring const name(path.begin(), path.end());
  Record writer(VxPngCreate(VX_PNG_DIB_TO_PNG), VxPngFree);
  writer->write.dib = dib.data();
  writer->write.dibSize = dib.size();
  VxPngSetOutputFile(writer.get(), name.c_str());
  ASSERT_EQ(VxDibToPng(writer.get()), VX_PNG_OK);
  VxPngSetInputFile(info.get(), name.c_str());
  ASSERT_EQ(VxPngToDib(info.get()), VX_PNG_OK) << Text(*info);
  EXPECT_EQ(Bits(*info), Bytes(dib.begin() + 40, dib.end()));
  EXPECT_EQ(Text(*info), "");  // the last run's failure text is gone
  VxPngFreeDib(info.get());
}
