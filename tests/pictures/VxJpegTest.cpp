// VxJpeg: a JPEG from a stream as a top-down 24-bit DIB, libjpeg's messages,
// and files that are cut, false or too large.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <sstream>

#include "pictures/ArtJpeg.h"
#include "pictures/VxJpeg.h"

namespace {

// Dark top half, bright bottom half, and red growing to the right.
std::string TwoBands(int width, int height) {
  wxImage image(width, height, false);
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x)
      image.SetRGB(x, y, static_cast<unsigned char>(x * 255 / (width - 1)),
                   y < height / 2 ? 20 : 230, 60);
  return vx3::EncodeArtJpeg(image, 100);
}

struct Pixel {
  int blue, green, red;
};

Pixel At(VxJpeg const & jpeg, int x, int y) {
  auto const * const block = static_cast<unsigned char const *>(GlobalLock(jpeg.GetDIB()));
  BITMAPINFOHEADER header{};
  std::memcpy(&header, block, sizeof header);
  std::size_t const stride = DibStride(header.biWidth, 24);
  unsigned char const * const at = block + 40 + stride * static_cast<std::size_t>(y) + 3 * x;
  return {at[0], at[1], at[2]};
}

}  // namespace

TEST(VxJpeg, DecodesIntoATopDown24BitDib) {
  std::istringstream stream(TwoBands(33, 16));
  VxJpeg const jpeg(stream);
  EXPECT_EQ(jpeg.GetErrorMessage(), "");
  ASSERT_NE(jpeg.GetDIB(), nullptr);
  BITMAPINFOHEADER header{};
  std::memcpy(&header, GlobalLock(jpeg.GetDIB()), sizeof header);
  EXPECT_EQ(header.biSize, 40u);
  EXPECT_EQ(header.biWidth, 33);
  EXPECT_EQ(header.biHeight, -16);
  EXPECT_EQ(header.biBitCount, 24);
  EXPECT_EQ(header.biPlanes, 1);
  EXPECT_EQ(GlobalSize(jpeg.GetDIB()), 40 + DibStride(33, 24) * 16);
  // Top row dark, bottom bright; blue byte first, red last and growing.
  Pixel const topLeft = At(jpeg, 0, 0);
  Pixel const bottomRight = At(jpeg, 32, 15);
  EXPECT_NEAR(topLeft.green, 20, 6);
  EXPECT_NEAR(bottomRight.green, 230, 6);
  EXPECT_NEAR(topLeft.red, 0, 6);
  EXPECT_NEAR(bottomRight.red, 255, 6);
  EXPECT_NEAR(bottomRight.blue, 60, 6);
}

TEST(VxJpeg, BadStreamsLeaveAMessage) {
  std::string const good = TwoBands(64, 64);
  std::string huge = TwoBands(8, 8);
  // The frame header (SOF0) claims 60000 x 60000 pixels.
  std::size_t const frame = huge.find("\xFF\xC0");
  ASSERT_NE(frame, std::string::npos);
  huge[frame + 5] = huge[frame + 7] = static_cast<char>(0xEA);
  huge[frame + 6] = huge[frame + 8] = static_cast<char>(0x60);
  struct Case {
    char const * name;
    std::string bytes;
    bool decoded;
    char const * message;  // part of the message
  } const cases[] = {
      {"cut short: rows so far, and a warning", good.substr(0, good.size() / 2), true,
       "Premature end of JPEG file"},
      {"no JPEG", std::string(200, 'x'), false, "Not a JPEG file"},
      {"empty", std::string(), false, "Not a JPEG file"},
      {"a bomb's header", huge, false, "60000 x 60000 pixels is too large"},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.name);
    std::istringstream stream(c.bytes);
    VxJpeg jpeg(stream);
    EXPECT_EQ(jpeg.GetDIB() != nullptr, c.decoded);
    EXPECT_NE(jpeg.GetErrorMessage().find(c.message), std::string::npos) << jpeg.GetErrorMessage();
    if (!c.decoded) EXPECT_FALSE(jpeg.GetBitMap().IsOk());
  }
}

TEST(VxJpeg, MissingResourceAndAddedMessagesAreLines) {
  VxJpeg jpeg(64999u);
  EXPECT_EQ(jpeg.GetDIB(), nullptr);
  EXPECT_EQ(jpeg.GetErrorMessage(), "VxJpeg: Resource could not be found!");
  jpeg.AddDecompressMessage("second");
  EXPECT_EQ(jpeg.GetErrorMessage(), "VxJpeg: Resource could not be found!\nsecond");
}
