// DIBs saved as JPEG: each depth gives the very bytes libjpeg writes at
// quality 80 for the colours the conversion rules give, top row first; the
// resolution becomes the JFIF density; refused blocks and failing files
// leave nothing behind.
#include <gtest/gtest.h>
#include <jpeglib.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "DibTestBlocks.h"
#include "JpegTestFiles.h"
#include "pictures/DibJpeg.h"
#include "utl/TestFiles.h"

namespace {

constexpr int kWidth = 19;
constexpr int kHeight = 7;

// Top-down RGB rows written at quality 80 with the library's defaults.
std::string ReferenceJpeg(Bytes const & rgb, int width, int height) {
  return LibjpegEncode(rgb.data(), width, height, 80);
}

struct DepthCase {
  std::string name;
  OwnedDib dib;
  Bytes expected;  // top-down RGB
};

// A picture of `bits` whose stored pixel at (x, stored row) comes from a
// formula; `expected` gets the colour the conversion rules give it.
DepthCase Picture(int bits, bool topDown) {
  std::size_t const stride = DibStride(kWidth, static_cast<unsigned>(bits));
  Bytes table;
  std::uint32_t used = 0;
  if (bits == 8) {
    used = 200;  // indices 200 and above fall outside the table: black
    for (unsigned i = 0; i < used; ++i)
      table.insert(table.end(), {static_cast<unsigned char>(i), static_cast<unsigned char>(i * 3),
                                 static_cast<unsigned char>(255 - i), 0});
  }
  Bytes pixels(stride * kHeight, 0xEE);  // the padding must be ignored
  Bytes expected(static_cast<std::size_t>(kWidth) * kHeight * 3);
  for (int stored = 0; stored < kHeight; ++stored) {
    int const y = topDown ? stored : kHeight - 1 - stored;
    for (int x = 0; x < kWidth; ++x) {
      unsigned char * in = pixels.data() + stride * stored + x * bits / 8;
      unsigned char * out = expected.data() + (static_cast<std::size_t>(y) * kWidth + x) * 3;
      unsigned const value = static_cast<unsigned>(x * 37 + stored * 101 + 5);
      if (bits == 8) {
        unsigned const index = value % 256;
        in[0] = static_cast<unsigned char>(index);
        if (index < used) {
          out[0] = static_cast<unsigned char>(255 - index);
          out[1] = static_cast<unsigned char>(index * 3);
          out[2] = static_cast<unsigned char>(index);
        } else {
          out[0] = out[1] = out[2] = 0;
        }
      } else if (bits == 16) {
        unsigned const pixel = (value * 2654435761u) >> 16;  // the top bit must be ignored
        in[0] = static_cast<unsigned char>(pixel);
        in[1] = static_cast<unsigned char>(pixel >> 8);
        out[0] = static_cast<unsigned char>(((pixel >> 10) & 31) * 255 / 31);
        out[1] = static_cast<unsigned char>(((pixel >> 5) & 31) * 255 / 31);
        out[2] = static_cast<unsigned char>((pixel & 31) * 255 / 31);
      } else {
        for (int c = 0; c < bits / 8; ++c)
          in[c] = static_cast<unsigned char>(value * (c + 3) + c * 50);
        out[0] = in[2];
        out[1] = in[1];
        out[2] = in[0];
      }
    }
  }
  std::string const name = std::to_string(bits) + " bits" + (topDown ? " top-down" : "");
  return {
      name,
      MakeDib(InfoHeader(kWidth, topDown ? -kHeight : kHeight, bits, BI_RGB, used), table, pixels),
      expected};
}

TEST(SaveDibAsJpeg, EveryDepthGivesLibjpegsBytesForItsConvertedColours) {
  DepthCase cases[] = {Picture(8, false), Picture(16, false), Picture(24, false),
                       Picture(32, false), Picture(24, true)};
  for (DepthCase const & test : cases) {
    SCOPED_TRACE(test.name);
    std::string const path = Temp("depth.jpg");
    ASSERT_EQ(SaveDIBAsJPEG(test.dib.get(), path.c_str()), 1);
    EXPECT_TRUE(Slurp(path) == ReferenceJpeg(test.expected, kWidth, kHeight));
  }
}

// The JFIF header: units at byte 13, then the two densities, big-endian.
struct Density {
  int unit, x, y;
};
Density JfifDensity(std::string const & bytes) {
  auto at = [&bytes](std::size_t i) { return static_cast<unsigned char>(bytes.at(i)); };
  return {at(13), at(14) << 8 | at(15), at(16) << 8 | at(17)};
}

// What `djpeg -verbose` says of the JFIF marker; empty without djpeg.
std::string DjpegJfifLine(std::string const & path) {
  std::string const command = "djpeg -verbose '" + path + "' 2>&1 >/dev/null";
  std::FILE * const pipe = ::popen(command.c_str(), "r");
  if (pipe == nullptr) return std::string();
  std::string found;
  char line[512];
  while (std::fgets(line, sizeof line, pipe) != nullptr)
    if (std::string(line).find("JFIF") != std::string::npos) found = line;
  ::pclose(pipe);
  return found;
}

TEST(SaveDibAsJpeg, ResolutionInBothFieldsBecomesDotsPerCentimetre) {
  struct Case {
    std::int32_t xPels, yPels;
    Density density;
    char const * djpeg;
  } const cases[] = {
      {2835, 3999, {2, 28, 39}, "density 28x39  2"},
      {0, 3937, {0, 1, 1}, "density 1x1  0"},  // libjpeg's default
      {3937, 0, {0, 1, 1}, "density 1x1  0"},
      {-3937, 3937, {0, 1, 1}, "density 1x1  0"},
  };
  for (Case const & test : cases) {
    SCOPED_TRACE(testing::Message() << test.xPels << " x " << test.yPels);
    BITMAPINFOHEADER header = InfoHeader(2, 2, 24);
    header.biXPelsPerMeter = test.xPels;
    header.biYPelsPerMeter = test.yPels;
    std::string const path = Temp("density.jpg");
    ASSERT_EQ(SaveDIBAsJPEG(MakeDib(header, Bytes(16, 128)).get(), path.c_str()), 1);
    Density const density = JfifDensity(Slurp(path));
    EXPECT_EQ(density.unit, test.density.unit);
    EXPECT_EQ(density.x, test.density.x);
    EXPECT_EQ(density.y, test.density.y);
    std::string const line = DjpegJfifLine(path);
    if (!line.empty()) {
      EXPECT_NE(line.find(test.djpeg), std::string::npos) << line;
    }
  }
}

TEST(SaveDibAsJpeg, RefusedBlocksAndFailingFilesLeaveNothingBehind) {
  std::string const kept = Temp("kept.jpg");
  Spit(kept, "old picture");
  Bytes const rows(64, 7);
  struct Case {
    std::string name;
    OwnedDib dib;
  } const cases[] = {
      {"no block", nullptr},
      {"4 bits", MakeDib(InfoHeader(2, 2, 4), Bytes(64, 0), rows)},
      {"run-length", MakeDib(InfoHeader(2, 2, 8, BI_RLE8), Bytes(1024, 0), rows)},
      {"masks", MakeDib(InfoHeader(2, 2, 16, BI_BITFIELDS), rows)},
      {"core header", MakeDib(BITMAPCOREHEADER{12, 2, 2, 1, 24}, rows)},
      {"rows past the block", MakeDib(InfoHeader(200, 2, 24), rows)},
      {"wider than JPEG allows", MakeDib(InfoHeader(70000, 1, 8), Bytes(1024 + 70000, 0))},
  };
  for (Case const & test : cases) {
    SCOPED_TRACE(test.name);
    EXPECT_EQ(SaveDIBAsJPEG(test.dib.get(), kept.c_str()), 0);
    EXPECT_EQ(Slurp(kept), "old picture");
  }
  OwnedDib const good = MakeDib(InfoHeader(2, 2, 24), rows);
  EXPECT_EQ(SaveDIBAsJPEG(good.get(), (Temp("missing") + "/new.jpg").c_str()), 0);
  EXPECT_EQ(SaveDIBAsJPEG(good.get(), ""), 0);
  EXPECT_EQ(SaveDIBAsJPEG(good.get(), kept.c_str()), 1);
  EXPECT_EQ(Slurp(kept).substr(0, 2), "\xFF\xD8");
}

}  // namespace
