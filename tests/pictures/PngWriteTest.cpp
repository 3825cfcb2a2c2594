// DIBs written as PNG files: every pixel format read back by libpng's own
// reader, the chunks the record asks for, and DIBs the writer must refuse.
#include <gtest/gtest.h>

#include <png.h>
#include <sys/stat.h>

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>

#include "DibTestBlocks.h"
#include "PngTestFiles.h"
#include "pictures/DibBlock.h"
#include "pictures/PngCoder.h"
#include "utl/TestFiles.h"

namespace {

using Record = std::unique_ptr<VxPngInfo, decltype(&VxPngFree)>;

Record Writer(Bytes const & dib, std::string const & path) {
  Record info(VxPngCreate(VX_PNG_DIB_TO_PNG), VxPngFree);
  info->write.dib = dib.data();
  info->write.dibSize = dib.size();
  std::wstring const name(path.begin(), path.end());
  VxPngSetOutputFile(info.get(), name.c_str());
  return info;
}

Bytes Dib(void const * header, std::size_t headerSize, Bytes const & table, Bytes const & pixels) {
  Bytes dib(static_cast<unsigned char const *>(header),
            static_cast<unsigned char const *>(header) + headerSize);
  dib.insert(dib.end(), table.begin(), table.end());
  dib.insert(dib.end(), pixels.begin(), pixels.end());
  return dib;
}

Bytes Dib(BITMAPINFOHEADER const & header, Bytes const & table, Bytes const & pixels) {
  return Dib(&header, sizeof header, table, pixels);
}

// The file's pixels as RGBA, top row first, by libpng's simplified reader.
Bytes ReadRgba(std::string const & path) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  if (png_image_begin_read_from_file(&image, path.c_str()) == 0) return {};
  image.format = PNG_FORMAT_RGBA;
  Bytes pixels(PNG_IMAGE_SIZE(image));
  png_image_finish_read(&image, nullptr, pixels.data(), 0, nullptr);
  return pixels;
}

struct WriteCase {
  char const * name;
  Bytes dib;
  bool alpha;
  Bytes rgba;  // top row first
  int colorType;
  int depth;
  Bytes significantBits;  // sBIT, empty when none
};

}  // namespace

TEST(PngWrite, EveryPixelFormatReachesTheFileAsItsColours) {
  Bytes const rows24 = {1, 2, 3, 4, 5, 6, 0, 0, 7, 8, 9, 10, 11, 12, 0, 0};
  Bytes const masks565 = {0x00, 0xF8, 0, 0, 0xE0, 0x07, 0, 0, 0x1F, 0, 0, 0};
  Bytes const bgrx = {10, 20, 30, 99, 40, 50, 60, 0};
  Bytes const primaries = {0, 0, 255, 0, 0, 255, 0, 0, 255, 0, 0, 0};
  Bytes const greys = {0, 0, 0, 0, 85, 85, 85, 0, 170, 170, 170, 0, 255, 255, 255, 0};
  Bytes const blackWhite = {0, 0, 0, 0, 255, 255, 255, 0};
  BITMAPCOREHEADER core{12, 2, 1, 1, 4};
  Bytes corePalette(48, 0);
  corePalette[3] = 7, corePalette[4] = 8, corePalette[5] = 9;     // entry 1: blue 7, green 8, red 9
  corePalette[6] = 17, corePalette[7] = 18, corePalette[8] = 19;  // entry 2
  // Run-length rows, bottom first: three of index 1, then 0 1 2 literally.
  Bytes const rle8 = {3, 1, 0, 0, 0, 3, 0, 1, 2, 0, 0, 1};
  BITMAPINFOHEADER rleHeader = InfoHeader(3, 2, 8, BI_RLE8, 3);
  WriteCase const cases[] = {
      {"24 bits, bottom row stored first",
       Dib(InfoHeader(2, 2, 24), {}, rows24),
       false,
       {9, 8, 7, 255, 12, 11, 10, 255, 3, 2, 1, 255, 6, 5, 4, 255},
       PNG_COLOR_TYPE_RGB,
       8,
       {}},
      {"24 bits, negative height: top row first",
       Dib(InfoHeader(2, -2, 24), {}, rows24),
       false,
       {3, 2, 1, 255, 6, 5, 4, 255, 9, 8, 7, 255, 12, 11, 10, 255},
       PNG_COLOR_TYPE_RGB,
       8,
       {}},
      // 5-5-5: f << 3 | f >> 2, so 31 gives 255, 16 gives 132 and 1 gives 8.
      {"16 bits 5-5-5",
       Dib(InfoHeader(2, 1, 16), {}, {0xFF, 0x7F, 0x20, 0x40}),
       false,
       {255, 255, 255, 255, 132, 8, 0, 255},
       PNG_COLOR_TYPE_RGB,
       8,
       {5, 5, 5}},
      // 5-6-5: green g << 2 | g >> 4, so 32 gives 130.
      {"16 bits 5-6-5 by masks",
       Dib(InfoHeader(1, 1, 16, BI_BITFIELDS), masks565, {0x01, 0xFC, 0, 0}),
       false,
       {255, 130, 8, 255},
       PNG_COLOR_TYPE_RGB,
       8,
       {5, 6, 5}},
      {"32 bits, fourth byte dropped",
       Dib(InfoHeader(2, 1, 32), {}, bgrx),
       false,
       {30, 20, 10, 255, 60, 50, 40, 255},
       PNG_COLOR_TYPE_RGB,
       8,
       {}},
      {"32 bits with alpha",
       Dib(InfoHeader(2, 1, 32), {}, bgrx),
       true,
       {30, 20, 10, 99, 60, 50, 40, 0},
       PNG_COLOR_TYPE_RGB_ALPHA,
       8,
       {}},
      {"8 bits, three used colours",
       Dib(InfoHeader(3, 1, 8, BI_RGB, 3), primaries, {2, 1, 0, 0}),
       false,
       {0, 0, 255, 255, 0, 255, 0, 255, 255, 0, 0, 255},
       PNG_COLOR_TYPE_PALETTE,
       8,
       {}},
      {"1 bit",
       Dib(InfoHeader(3, 1, 1), blackWhite, {0xA0, 0, 0, 0}),
       false,
       {255, 255, 255, 255, 0, 0, 0, 255, 255, 255, 255, 255},
       PNG_COLOR_TYPE_PALETTE,
       1,
       {}},
      {"2 bits",
       Dib(InfoHeader(4, 1, 2), greys, {0x1B, 0, 0, 0}),
       false,
       {0, 0, 0, 255, 85, 85, 85, 255, 170, 170, 170, 255, 255, 255, 255, 255},
       PNG_COLOR_TYPE_PALETTE,
       2,
       {}},
      {"core header, 3-byte palette",
       Dib(&core, sizeof core, corePalette, {0x12, 0, 0, 0}),
       false,
       {9, 8, 7, 255, 19, 18, 17, 255},
       PNG_COLOR_TYPE_PALETTE,
       4,
       {}},
      {"run-length 8 bits",
       Dib(rleHeader, primaries, rle8),
       false,
       {255, 0,   0, 255, 0, 255, 0, 255, 0, 0,   255, 255,
        0,   255, 0, 255, 0, 255, 0, 255, 0, 255, 0,   255},
       PNG_COLOR_TYPE_PALETTE,
       8,
       {}},
  };
  for (WriteCase const & c : cases) {
    SCOPED_TRACE(c.name);
    std::string const path = Temp("formats.png");
    Record info = Writer(c.dib, path);
    info->write.alpha = c.alpha;
    ASSERT_EQ(VxDibToPng(info.get()), VX_PNG_OK)
        << std::string(info->errorText, info->errorText + std::wcslen(info->errorText));
    EXPECT_EQ(ReadRgba(path), c.rgba);
    PngChunks const chunks = WalkChunks(ReadAll(path));
    Bytes const & ihdr = chunks.data.at("IHDR");
    EXPECT_EQ(ihdr[8], c.depth);
    EXPECT_EQ(ihdr[9], c.colorType);
    EXPECT_EQ(chunks.data.count("sBIT") ? chunks.data.at("sBIT") : Bytes(), c.significantBits);
  }
}

TEST(PngWrite, InterlacedFileHoldsTheSamePixels) {
  Bytes pixels;
  for (int i = 0; i < 5 * 4 * 3 + 3; ++i) pixels.push_back(static_cast<unsigned char>(i * 7));
  // 5 pixels of 3 bytes make 15, padded to 16.
  Bytes rows;
  for (int y = 0; y < 4; ++y) {
    rows.insert(rows.end(), pixels.begin() + y * 15, pixels.begin() + y * 15 + 15);
    rows.push_back(0);
  }
  Bytes const dib = Dib(InfoHeader(5, -4, 24), {}, rows);
  std::string const plainPath = Temp("plain.png");
  std::string const interlacedPath = Temp("interlaced.png");
  ASSERT_EQ(VxDibToPng(Writer(dib, plainPath).get()), VX_PNG_OK);
  Record interlaced = Writer(dib, interlacedPath);
  interlaced->write.interlaced = true;
  ASSERT_EQ(VxDibToPng(interlaced.get()), VX_PNG_OK);
  EXPECT_EQ(WalkChunks(ReadAll(interlacedPath)).data.at("IHDR")[12], 1);
  EXPECT_EQ(ReadRgba(interlacedPath), ReadRgba(plainPath));
}

TEST(PngWrite, GammaResolutionAndSoftwareChunksFollowTheRecord) {
  struct Case {
    bool gamma;
    double fileGamma;
    bool srgb;
    std::uint32_t gammaChunk;  // 0: no gAMA
  } const cases[] = {
      {true, 0.45455, true, 45455},  {true, 0.5, false, 50000},
      {true, 0.45454, true, 45454},  // inside the window around 1 / 2.2
      {true, 0.45456, false, 45456}, {false, 0.45455, false, 0},
  };
  BITMAPINFOHEADER header = InfoHeader(1, 1, 24);
  header.biXPelsPerMeter = 3780;
  header.biYPelsPerMeter = 2000;
  Bytes const dib = Dib(header, {}, {1, 2, 3, 0});
  for (Case const & c : cases) {
    SCOPED_TRACE(c.fileGamma);
    std::string const path = Temp("chunks.png");
    Record info = Writer(dib, path);
    info->write.gamma = c.gamma;
    info->write.fileGamma = c.fileGamma;
    VxPngSetSoftware(info.get(), L"Analyzer 6.3");
    ASSERT_EQ(VxDibToPng(info.get()), VX_PNG_OK);
    PngChunks const chunks = WalkChunks(ReadAll(path));
    EXPECT_EQ(chunks.data.count("sRGB"), c.srgb ? 1u : 0u);
    if (c.srgb) EXPECT_EQ(chunks.data.at("sRGB"), Bytes{1});
    EXPECT_EQ(chunks.data.count("gAMA") ? Get32(chunks.data.at("gAMA").data()) : 0u, c.gammaChunk);
    Bytes const phys = chunks.data.at("pHYs");
    EXPECT_EQ(Get32(phys.data()), 3780u);
    EXPECT_EQ(Get32(phys.data() + 4), 2000u);
    EXPECT_EQ(phys[8], 1);  // metre
    std::string const text(chunks.data.at("tEXt").begin(), chunks.data.at("tEXt").end());
    EXPECT_EQ(text, std::string("Software\0Analyzer 6.3", 21));
    // The text follows the image data.
    EXPECT_GT(std::find(chunks.order.begin(), chunks.order.end(), "tEXt"),
              std::find(chunks.order.begin(), chunks.order.end(), "IDAT"));
  }
  // One resolution of 0 writes none.
  header.biYPelsPerMeter = 0;
  std::string const path = Temp("no-phys.png");
  ASSERT_EQ(VxDibToPng(Writer(Dib(header, {}, {1, 2, 3, 0}), path).get()), VX_PNG_OK);
  EXPECT_EQ(WalkChunks(ReadAll(path)).data.count("pHYs"), 0u);
}

TEST(PngWrite, RefusesWhatItCannotWriteWithCodeAndText) {
  BITMAPINFOHEADER header20 = InfoHeader(1, 1, 24);
  header20.biSize = 20;
  struct Case {
    char const * name;
    Bytes dib;
    int code;
    std::wstring text;
  } const cases[] = {
      {"header of 20 bytes", Dib(header20, {}, {0, 0, 0, 0}), VX_PNG_BAD_BMP,
       L"Unexpected BMP header size (20)"},
      {"too wide", Dib(InfoHeader(1000001, 1, 8, BI_RLE8), {}, {}), VX_PNG_BAD_BMP,
       L"Unreasonable image dimensions (1000001x1)"},
      {"no height", Dib(InfoHeader(1, 0, 24), {}, {}), VX_PNG_BAD_BMP,
       L"Unreasonable image dimensions (1x0)"},
      {"24 bits with masks", Dib(InfoHeader(1, 1, 24, BI_BITFIELDS), Bytes(12), Bytes(4)),
       VX_PNG_UNSUPPORTED, L"Unsupported bit depth (24)"},
      {"3 bits", Dib(InfoHeader(1, 1, 3), Bytes(32), Bytes(4)), VX_PNG_UNSUPPORTED,
       L"Unsupported bit depth (3)"},
      {"compression 4", Dib(InfoHeader(1, 1, 24, 4), {}, Bytes(4)), VX_PNG_UNSUPPORTED,
       L"Unsupported compression scheme"},
      {"run-length 4 on 8 bits", Dib(InfoHeader(1, 1, 8, BI_RLE4), Bytes(1024), Bytes(4)),
       VX_PNG_UNSUPPORTED, L"Unsupported bit depth (8)"},
      {"16 bits with other masks", Dib(InfoHeader(1, 1, 16, BI_BITFIELDS), Bytes(12), Bytes(4)),
       VX_PNG_UNSUPPORTED, L"Invalid or unsupported image"},
      {"run-length picture too large to unpack",
       Dib(InfoHeader(1000000, 10000, 8, BI_RLE8), Bytes(1024), {0, 1}), VX_PNG_MEMORY,
       L"Unable to allocate memory"},
      {"pixels missing", Dib(InfoHeader(4, 4, 24), {}, Bytes(47)), VX_PNG_BAD_BMP,
       L"Invalid BMP image"},
      {"palette missing", Dib(InfoHeader(4, 1, 8), Bytes(1000), Bytes(4)), VX_PNG_BAD_BMP,
       L"Invalid BMP image"},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.name);
    std::string const path = Temp("refused.png");
    Record info = Writer(c.dib, path);
    EXPECT_EQ(VxDibToPng(info.get()), c.code);
    EXPECT_EQ(std::wstring(info->errorText), c.text);
    EXPECT_FALSE(std::filesystem::exists(path));
  }
  Bytes const good = Dib(InfoHeader(1, 1, 24), {}, Bytes(4));
  Record noName(VxPngCreate(VX_PNG_DIB_TO_PNG), VxPngFree);
  noName->write.dib = good.data();
  EXPECT_EQ(VxDibToPng(noName.get()), VX_PNG_UNKNOWN);
  EXPECT_EQ(std::wstring(noName->errorText), L"Output filename not set");
  Record noDib = Writer(good, Temp("none.png"));
  noDib->write.dib = nullptr;
  EXPECT_EQ(VxDibToPng(noDib.get()), VX_PNG_UNKNOWN);
  EXPECT_EQ(std::wstring(noDib->errorText), L"Input DIB not set");
  // An unwritable place: code 9, and the old file is kept whole.
  Record nowhere = Writer(good, Temp("missing-folder/x.png"));
  EXPECT_EQ(VxDibToPng(nowhere.get()), VX_PNG_WRITE);
  EXPECT_EQ(std::wstring(nowhere->errorText), L"Unable to write file");
}

TEST(PngWrite, AFailedRunLeavesTheOldFileAndNoTemporary) {
  std::string const path = Temp("kept/picture.png");
  std::filesystem::create_directories(Temp("kept"));
  Bytes const good = Dib(InfoHeader(1, 1, 24), {}, {1, 2, 3, 0});
  ASSERT_EQ(VxDibToPng(Writer(good, path).get()), VX_PNG_OK);
  Bytes const before = ReadAll(path);
  Record bad = Writer(good, path);
  bad->write.fileGamma = -1.0;  // libpng refuses a negative gamma while writing
  EXPECT_EQ(VxDibToPng(bad.get()), VX_PNG_LIBPNG);
  EXPECT_EQ(std::wstring(bad->errorText).rfind(L"[libpng] ", 0), 0u);
  EXPECT_EQ(ReadAll(path), before);
  // The file is readable as any new one, not private like a temporary.
  mode_t const mask = ::umask(0);
  ::umask(mask);
  EXPECT_EQ(std::filesystem::status(path).permissions(),
            static_cast<std::filesystem::perms>(0666 & ~mask));
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(Temp("kept")),
                          std::filesystem::directory_iterator()),
            1);
}

// Another reader's view of a written file: every chunk well formed.
TEST(PngWrite, PngcheckFindsTheChunksValid) {
  if (std::system("command -v pngcheck > /dev/null") != 0) GTEST_SKIP() << "pngcheck missing";
  Bytes pixels(3 * 4 * 4);
  for (std::size_t i = 0; i < pixels.size(); ++i) pixels[i] = static_cast<unsigned char>(i * 11);
  BITMAPINFOHEADER header = InfoHeader(3, 4, 32);
  header.biXPelsPerMeter = header.biYPelsPerMeter = 3780;
  Bytes const dib = Dib(header, {}, pixels);
  for (bool const interlaced : {false, true}) {
    std::string const path = Temp("checked.png");
    Record info = Writer(dib, path);
    info->write.interlaced = interlaced;
    VxPngSetSoftware(info.get(), L"Analyzer");
    ASSERT_EQ(VxDibToPng(info.get()), VX_PNG_OK);
    std::string const report = Temp("pngcheck.txt");
    EXPECT_EQ(std::system(("pngcheck -v '" + path + "' > '" + report + "'").c_str()), 0);
    Bytes const text = ReadAll(report);
    std::string const out(text.begin(), text.end());
    for (char const * chunk : {"chunk IHDR", "chunk sRGB", "chunk gAMA", "chunk pHYs", "chunk IDAT",
                               "chunk tEXt", "chunk IEND", "No errors"})
      EXPECT_NE(out.find(chunk), std::string::npos) << chunk << "\n" << out;
    EXPECT_NE(out.find(interlaced ? "24-bit RGB, interlaced" : "24-bit RGB, non-interlaced"),
              std::string::npos)
        << out;
  }
}
